#pragma once

#include "CalendarQuestion.h"
#include "CalendarStore.h"

#include <QByteArray>
#include <QStringList>

namespace perchly {

/// What the companion said, taken apart. Any thread.
struct CalendarReading {
    struct File {
        QString path;
        bool torn = false; ///< something may be missing: it is being written, or damaged
        QList<CalendarEvent> events = {};
    };

    QList<File> files;
    QList<FoundCalendar> calendars;
    QStringList folders;   ///< to watch
    bool finished = false; ///< the companion came to its end

    [[nodiscard]] static CalendarReading parse(const QByteArray &lines);

    /// Puts what an earlier reading found in their place where files are torn now.
    void keepFrom(const CalendarReading &earlier);

    /// Those that take place in part between the moments, each identifier once: what two calendars
    /// hold alike is one event.
    [[nodiscard]] QList<CalendarEvent> eventsBetween(Clock::TimePoint from,
                                                     Clock::TimePoint to) const;
};

} // namespace perchly
