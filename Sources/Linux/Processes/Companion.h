#pragma once

#include <QString>

namespace perchly {

/// The absolute path of a program that belongs to this one: beside it, or where packages put such
/// programs. Empty when it is not installed.
[[nodiscard]] QString findCompanion(const QString &name);

} // namespace perchly
