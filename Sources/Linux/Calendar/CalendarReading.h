#pragma once

#include "CalendarRecords.h"
#include "CalendarStore.h"

#include <QHash>

namespace perchly {

/// The calendars that the companion found, and their events.
struct CalendarReading {
    struct Contents {
        QList<CalendarEvent> events;
        bool isWhole = false;
        int kept = 0; ///< number of readings that the events are older than this one
    };

    CalendarList list;
    QHash<QString, Contents> contents; ///< by source
    bool isComplete = true;            ///< the service and all calendars answered

    CalendarReading() = default;
    /// Starts with the events of an earlier reading.
    CalendarReading(CalendarList found, const CalendarReading &earlier);

    /// Takes the companion's answer about a calendar, or that it failed.
    void take(const QString &source, const QByteArray &answer, bool isRead);

    /// Those that take place between the moments, at least in part, without duplicates in other
    /// calendars.
    [[nodiscard]] QList<CalendarEvent> eventsBetween(Clock::TimePoint from,
                                                     Clock::TimePoint to) const;
};

} // namespace perchly
