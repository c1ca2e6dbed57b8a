#pragma once

#include <QString>

namespace perchly {

/// The absolute path of a companion program, in this program's folder or in libexec; empty if it is
/// not installed.
[[nodiscard]] QString findCompanion(const QString &name);

} // namespace perchly
