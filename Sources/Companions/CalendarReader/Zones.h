#pragma once

#include "Calendar.h"

#include <QTimeZone>

namespace perchly {

/// A time zone of the system, or one that a calendar defines. Clock times are counted in seconds as
/// if they were UTC.
class Zone {
public:
    /// The second counts unless it is null, and outlives this.
    Zone(const QTimeZone &system, icaltimezone *own)
        : m_system(system)
        , m_own(own) {}

    [[nodiscard]] std::int64_t toClock(std::int64_t moment) const {
        return moment + offsetAt(moment);
    }
    /// The first of two moments with the same clock time. A time that the clocks skip is counted
    /// from before the gap.
    [[nodiscard]] std::int64_t toMoment(std::int64_t clock) const;

private:
    [[nodiscard]] int offsetAt(std::int64_t moment) const; ///< from UTC, in seconds

    QTimeZone m_system;
    icaltimezone *m_own;
};

/// Finds zones by the names that calendars use.
class Zones {
public:
    explicit Zones(const Calendar &calendar)
        : m_calendar(calendar) {}

    /// An IANA name, whatever prefix it has, or a name of Windows; the calendar's own definition
    /// for other names; this machine's zone for an empty or unknown one.
    [[nodiscard]] const Zone &find(const std::string &name);

private:
    const Calendar &m_calendar;
    std::map<std::string, Zone> m_zones;
};

} // namespace perchly
