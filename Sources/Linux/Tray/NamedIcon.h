#pragma once

#include <QIcon>

namespace perchly {

/// A picture with the name of a symbolic icon of the icon theme, which panels may show instead in
/// their own colour.
[[nodiscard]] QIcon namedIcon(const QString &name, const QIcon &picture);

} // namespace perchly
