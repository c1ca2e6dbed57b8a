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
        int kept = 0; ///< number of readings since the events were read
    };

    CalendarList list;
    QHash<QString, Contents> contents; ///< by source
    bool isComplete = true;            ///< the service and all calendars answered

    CalendarReading() = default;
    /// Starts with the events of an earlier reading.
    CalendarReading(CalendarList found, const CalendarReading &earlier);

    /// Takes the companion's answer for a calendar, or notes that the run failed.
    void take(const QString &source, const QByteArray &answer, bool isRead);

    /// The events that take place, at least partly, between the moments, without duplicates across
    /// calendars.
    [[nodiscard]] QList<CalendarEvent> eventsBetween(Clock::TimePoint from,
                                                     Clock::TimePoint to) const;
};

} // namespace perchly
