#pragma once

#include "PowerSources.h"

#include <QString>

namespace perchly {

/// Reads the kernel's folder of power supplies, one folder for each, in the order of their names.
/// Batteries of devices such as mice are left out. Nothing when there is no such folder. Blocks for
/// as long as the firmware takes to answer; any thread.
[[nodiscard]] PowerSources::Reading readKernelPower(const QString &folder);

} // namespace perchly
