#pragma once

#include "Clock.h"

#include <QList>
#include <QObject>
#include <QString>

#include <functional>

namespace perchly {

/// One occurrence of an event. A text that the event does not have is null.
struct CalendarEvent {
    /// Differs among the events of one answer, stays the same between answers.
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

/// The user's consent to reading their calendars; kept between runs.
enum class CalendarAccess { NotAsked, Denied, Granted };

/// The user's calendars. Nothing blocks; every completion is called once, after its call has
/// returned, unless the call's task was destroyed before. The store outlives the tasks. Main thread
/// only.
class CalendarStore : public QObject {
    Q_OBJECT
public:
    struct Answer {
        CalendarAccess access = CalendarAccess::NotAsked;
        QString error; ///< why the user could not be asked; empty if they were
    };
    using AccessCompletion = std::function<void(const Answer &answer)>;
    using EventsCompletion = std::function<void(const QList<CalendarEvent> &events)>;

    using QObject::QObject;

    [[nodiscard]] virtual CalendarAccess access() const = 0;
    /// False if the last answer may lack events because a calendar could not be read.
    [[nodiscard]] virtual bool isReadable() const { return true; }

    /// Asks the user for consent, naming what would be read. A user who has given it is asked again
    /// and can withdraw it. A question that is closed without an answer changes nothing.
    [[nodiscard]] virtual Task requestAccess(AccessCompletion completion) = 0;

    /// The events of all calendars that take place, at least in part, after `from` and before `to`,
    /// not sorted. A calendar that can no longer be read has the events that were read last;
    /// without consent there are none.
    [[nodiscard]] virtual Task events(Clock::TimePoint from, Clock::TimePoint to,
                                      EventsCompletion completion) = 0;

    /// The next call reads the calendars, even if no change to them was noticed.
    virtual void expectChange() = 0;

Q_SIGNALS:
    /// The consent or a calendar changed: earlier answers may be outdated.
    void changed();
};

} // namespace perchly
