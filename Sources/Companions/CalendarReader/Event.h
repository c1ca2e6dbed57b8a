#pragma once

#include "Zones.h"

#include <optional>

namespace perchly {

/// A clock time in a zone, or a whole day.
struct CalendarTime {
    std::int64_t clock = 0; ///< in seconds; for a day, its first second
    const Zone *zone = nullptr;
    bool isDay = false;

    [[nodiscard]] std::int64_t moment() const { return zone->toMoment(clock); }
    [[nodiscard]] std::int64_t day() const { return clock / secondsPerDay; }
};

/// A single event, a recurring one, or an exception to a recurring one.
struct Event {
    icalcomponent *component = nullptr;
    CalendarTime start;
    std::int64_t days = 0;                ///< of the duration, counted by the clock
    std::int64_t seconds = 0;             ///< of the duration, in addition to the days
    std::optional<CalendarTime> replaced; ///< start of the occurrence that an exception replaces
    bool replacesFollowing = false;       ///< also replaces the later occurrences
    bool isCancelled = false;
    int revision = 0;
    bool recurs = false;
    /// Start, rules and exclusions in the clock time of the start's zone.
    IcalPtr<icalcomponent> recurrence;
};

/// nullopt if the event has no valid start. The component and the zones must outlive the event.
[[nodiscard]] std::optional<Event> readEvent(icalcomponent *component, Zones &zones);

} // namespace perchly
