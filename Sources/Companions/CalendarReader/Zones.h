#pragma once

#include "Calendar.h"

#include <QTimeZone>

namespace perchly {

/// A time zone of the system, or one that a calendar defines. Clock times are counted in seconds as
/// if they were UTC.
class Zone {
public:
    /// `own` is used unless it is null, and must outlive this.
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

    /// The system zone for an IANA name, with any prefix, or a Windows name; the calendar's
    /// definition for other names; the local zone for an empty or unknown name.
    [[nodiscard]] const Zone &find(const std::string &name);

private:
    const Calendar &m_calendar;
    std::map<std::string, Zone> m_zones;
};

} // namespace perchly
