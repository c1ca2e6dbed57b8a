#pragma once

#include <QtGlobal>

#include <cstdint>
#include <optional>

namespace perchly {

/// When the process began, in the kernel's ticks; nothing when it has ended or cannot be seen. Two
/// processes with one identifier differ in it.
[[nodiscard]] std::optional<quint64> processStartTime(std::int32_t pid);

} // namespace perchly
