#pragma once

#include "Event.h"

#include <vector>

namespace perchly {

/// One time at which an event takes place.
struct Occurrence {
    const Event *event = nullptr; ///< whose texts it has
    std::int64_t start = 0;       ///< in seconds since 1970, universal time
    std::int64_t end = 0;
    std::string identifier; ///< stays the same when the occurrence is moved
};

/// When events of one uid take place within the window, in part at least: the repeated ones by
/// their rules, with what is added, left out, moved and cancelled. A rule may be made to never
/// find its next time, so this may not return (see GuardedLoop.h). The occurrences point into the
/// events.
[[nodiscard]] std::vector<Occurrence> occurrencesOf(const std::vector<Event> &events,
                                                    const TimeWindow &window);

} // namespace perchly
