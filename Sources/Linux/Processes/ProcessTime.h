#pragma once

#include <QtGlobal>

#include <cstdint>
#include <optional>

namespace perchly {

/// When the process started, in the kernel's ticks; nullopt if it has ended or cannot be read.
/// Distinguishes processes that had the same PID.
[[nodiscard]] std::optional<quint64> processStartTime(std::int32_t pid);

} // namespace perchly
