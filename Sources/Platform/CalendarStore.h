#pragma once

#include "Clock.h"

#include <QList>
#include <QObject>
#include <QString>

#include <functional>

namespace perchly {

/// One occurrence of an event. A text that the event lacks is null.
struct CalendarEvent {
    /// Unique among the events of one answer, stable between answers.
    QString identifier = {};
    QString title = {};
    Clock::TimePoint start = {};
    Clock::TimePoint end = {}; ///< not before the start
    bool allDay = false;
    QString url = {};
    QString location = {};
    QString notes = {}; ///< plain text or HTML, as in the calendar

    bool operator==(const CalendarEvent &) const = default;
};

/// The user's consent to reading calendars; kept between runs.
enum class CalendarAccess { NotAsked, Denied, Granted };

/// The user's calendars. Nothing blocks; every completion is called once, after its call has
/// returned, unless the call's task is destroyed first. The store must outlive the tasks. Main
/// thread only.
class CalendarStore : public QObject {
    Q_OBJECT
public:
    struct Answer {
        CalendarAccess access = CalendarAccess::NotAsked;
        QString error; ///< why the user could not be asked, or empty
    };
    using AccessCompletion = std::function<void(const Answer &answer)>;
    using EventsCompletion = std::function<void(const QList<CalendarEvent> &events)>;

    using QObject::QObject;

    [[nodiscard]] virtual CalendarAccess access() const = 0;
    /// False if the last answer may lack events because a calendar could not be read.
    [[nodiscard]] virtual bool isReadable() const { return true; }

    /// Asks the user for consent and names what would be read. A user who has given consent is
    /// asked again and can withdraw it. Closing the question without an answer changes nothing.
    [[nodiscard]] virtual Task requestAccess(AccessCompletion completion) = 0;

    /// The events of all calendars that take place, at least partly, after `from` and before `to`,
    /// unsorted. A calendar that can no longer be read keeps its last events; without consent there
    /// are no events.
    [[nodiscard]] virtual Task events(Clock::TimePoint from, Clock::TimePoint to,
                                      EventsCompletion completion) = 0;

    /// Makes the next call read the calendars even if no change was noticed.
    virtual void expectChange() = 0;

Q_SIGNALS:
    /// The consent or a calendar changed: earlier answers may be outdated.
    void changed();
};

} // namespace perchly
