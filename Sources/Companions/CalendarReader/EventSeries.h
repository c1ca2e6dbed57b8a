#pragma once

#include "Event.h"

namespace perchly {

/// One time at which an event takes place.
struct Occurrence {
    const Event *event = nullptr; ///< whose texts it has
    std::int64_t start = 0;       ///< in seconds since 1970, UTC
    std::int64_t end = 0;
    std::int64_t original = 0; ///< the start by the rule, which stays the same when it is moved
    bool isOneOfMany = false;
};

/// When the events, which share a UID, take place in the window, at least in part: recurring ones
/// by their rules, with exceptions applied. The occurrences point into the events.
[[nodiscard]] std::vector<Occurrence> occurrencesOf(const std::vector<Event> &events,
                                                    const TimeWindow &window);

} // namespace perchly
