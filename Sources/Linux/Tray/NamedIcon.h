#pragma once

#include <QIcon>

namespace perchly {

/// A picture that also bears a name by which panels find their own one: a symbolic icon of the icon
/// theme, which takes the panel's colour. What panels that do not look for names get is the
/// picture, unchanged.
[[nodiscard]] QIcon namedIcon(const QString &name, const QIcon &picture);

} // namespace perchly
