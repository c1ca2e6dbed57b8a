#pragma once

#include "Hosts.h"
#include "SingleInstance.h"

namespace perchly {

/// Hosts that answer as if there was nothing to ask. Only the clock is left empty, as time is never
/// missing.
[[nodiscard]] Hosts nullHosts();

/// Every instance is the only one.
[[nodiscard]] std::unique_ptr<SingleInstance> nullSingleInstance();

} // namespace perchly
