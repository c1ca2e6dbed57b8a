#pragma once

#include <cstdint>

namespace perchly {

/// A span of time in seconds since 1970, universal time, without its end.
struct TimeWindow {
    std::int64_t from = 0;
    std::int64_t to = 0;
};

constexpr std::int64_t secondsPerDay = 86400;

} // namespace perchly
