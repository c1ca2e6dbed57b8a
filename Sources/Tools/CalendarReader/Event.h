#pragma once

#include "CalendarText.h"
#include "ZoneTable.h"

#include <QString>

#include <libical/ical.h>
#include <memory>
#include <optional>
#include <vector>

namespace perchly {

/// A time as a calendar writes it: what the clocks of a zone show, or a day, whatever the zone.
struct CalendarTime {
    std::int64_t local = 0; ///< in seconds; the first of the day for a day
    const Zone *zone = nullptr;
    bool isDay = false;

    [[nodiscard]] std::int64_t moment() const { return zone->toMoment(local); }
    [[nodiscard]] std::int64_t day() const {
        return (local - (local < 0 ? secondsPerDay - 1 : 0)) / secondsPerDay;
    }
};

struct ComponentDeleter {
    void operator()(icalcomponent *component) const { icalcomponent_free(component); }
};

/// An event as it is written down: one that takes place once or again and again, or the exception
/// that stands for occurrences of such a one.
struct Event {
    std::string uid;
    QString title; ///< this and the texts below are null where there are none, and cut when long
    QString url;
    QString location;
    QString notes;

    CalendarTime start;
    std::int64_t days = 0; ///< how long it takes: so many days by the clock, and then
    std::int64_t seconds = 0;
    std::vector<icalrecurrencetype> rules; ///< point into the component
    std::vector<CalendarTime> moreStarts;
    std::vector<CalendarTime> leftOut;
    std::optional<CalendarTime> insteadOf; ///< the occurrence that an exception stands for
    bool andFollowing = false;             ///< for those after it too
    bool isCancelled = false;
    int revision = 0;

    std::unique_ptr<icalcomponent, ComponentDeleter> component;

    [[nodiscard]] bool recurs() const { return !rules.empty() || !moreStarts.empty(); }
    /// When the occurrence that starts then, by the clock, is over.
    [[nodiscard]] std::int64_t endAfter(std::int64_t local) const {
        return start.zone->toMoment(local + days * secondsPerDay) + seconds;
    }
};

/// Nothing for a text that is no event or has no start. The zones outlive the event.
[[nodiscard]] std::optional<Event> parseEvent(const EventText &text, ZoneTable &zones);

} // namespace perchly
