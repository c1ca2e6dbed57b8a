#pragma once

#include "Event.h"

namespace perchly {

/// One time at which an event takes place.
struct Occurrence {
    const Event *event = nullptr; ///< provides the texts
    std::int64_t start = 0;       ///< in seconds since 1970, UTC
    std::int64_t end = 0;
    std::int64_t original = 0; ///< the start by the rule, even if the occurrence was moved
    bool isOneOfMany = false;
};

/// The occurrences, at least partly in the window, of events that share a UID: recurring events by
/// their rules, with exceptions applied. They point into `events`.
[[nodiscard]] std::vector<Occurrence> occurrencesOf(const std::vector<Event> &events,
                                                    const TimeWindow &window);

} // namespace perchly
