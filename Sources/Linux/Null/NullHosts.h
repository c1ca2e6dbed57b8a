#pragma once

#include "Hosts.h"
#include "SingleInstance.h"

namespace perchly {

/// Hosts for a program without a desktop. The clock is left empty, as every system has one.
[[nodiscard]] Hosts nullHosts();

/// Always claims to be the only instance.
[[nodiscard]] std::unique_ptr<SingleInstance> nullSingleInstance();

} // namespace perchly
