#pragma once

#include <QIcon>

namespace perchly {

/// A picture that carries the name of a symbolic icon in the icon theme, which panels may show in
/// their own colour instead.
[[nodiscard]] QIcon namedIcon(const QString &name, const QIcon &picture);

} // namespace perchly
