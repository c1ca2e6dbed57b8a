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
    QString notes = {}; ///< plain text or HTML, as whoever wrote the event left it

    bool operator==(const CalendarEvent &) const = default;
};

/// What the person said to our reading their calendars; remembered between runs.
enum class CalendarAccess { NotAsked, Denied, Granted };

/// The person's calendars. Nothing blocks; every completion is called once, never before its call
/// has returned. Destroying a call's task gives the call up: its completion is not called any more.
/// The store outlives the tasks. Main thread only.
class CalendarStore : public QObject {
    Q_OBJECT
public:
    struct Answer {
        CalendarAccess access = CalendarAccess::NotAsked;
        QString error; ///< why the person could not be asked; empty if they were
    };
    using AccessCompletion = std::function<void(const Answer &answer)>;
    using EventsCompletion = std::function<void(const QList<CalendarEvent> &events)>;

    using QObject::QObject;

    [[nodiscard]] virtual CalendarAccess access() const = 0;

    /// Asks the person, naming what would be read. Who allowed it before is asked whether that
    /// still holds, so this is also the way to take it back. A question that is closed without an
    /// answer leaves things as they are.
    [[nodiscard]] virtual Task requestAccess(AccessCompletion completion) = 0;

    /// The events of all calendars that take place, in part at least, after `from` and before `to`,
    /// in no order that means anything. What cannot be read any more is answered as it was read
    /// last; without access there is nothing.
    [[nodiscard]] virtual Task events(Clock::TimePoint from, Clock::TimePoint to,
                                      EventsCompletion completion) = 0;

    /// The next question is answered from the calendars themselves, even if nothing tells that they
    /// have changed.
    virtual void expectChange() = 0;

Q_SIGNALS:
    /// Access was given or taken, or a calendar changed: what was answered may not hold any more.
    void changed();
};

} // namespace perchly
