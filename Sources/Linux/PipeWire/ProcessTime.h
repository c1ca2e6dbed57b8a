#pragma once

#include <QtGlobal>

#include <cstdint>
#include <optional>

namespace perchly {

/// When the process started, in the kernel's ticks; nothing when it has ended or cannot be read.
/// Tells apart processes that had the same pid.
[[nodiscard]] std::optional<quint64> processStartTime(std::int32_t pid);

} // namespace perchly
