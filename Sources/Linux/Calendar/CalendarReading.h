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
        int kept = 0;      ///< for how many torn readings in a row the events are an earlier one's
        QList<CalendarEvent> events = {};
    };

    QList<File> files;
    QList<FoundCalendar> calendars;
    QStringList folders; ///< to watch
    /// To watch, too; they also change when the desktop's calendar service is only asked.
    QStringList serviceFolders;
    bool muteService = false; ///< it did not say which calendars it has
    bool finished = false;    ///< the companion came to its end
    bool cutShort = false;    ///< but not everything could be read in the time and memory it has

    [[nodiscard]] static CalendarReading parse(const QByteArray &lines);

    /// Puts what an earlier reading found in their place where files are torn, or the service mute.
    /// A file that stays torn is damaged rather than being written: then what it has is shown.
    void keepFrom(const CalendarReading &earlier);

    /// Whether the service has calendars, and whether it left out what some of them hold.
    [[nodiscard]] bool hasService() const { return muteService || serviceFolders.size() > 1; }
    [[nodiscard]] bool lacksOfService() const;

    /// Those that take place in part between the moments, each identifier once: what two calendars
    /// hold alike is one event.
    [[nodiscard]] QList<CalendarEvent> eventsBetween(Clock::TimePoint from,
                                                     Clock::TimePoint to) const;
};

} // namespace perchly
