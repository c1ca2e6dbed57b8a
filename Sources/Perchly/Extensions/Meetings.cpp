#include "Hosts.h"
#include "ShelfExtras.h"
#include "ShownText.h"

#include <algorithm>

namespace perchly {

using namespace std::chrono_literals;

namespace {

constexpr auto window = 7 * 24h;

} // namespace

QString ShelfExtras::firstEventTitle() const {
    return m_events.isEmpty() ? QString() : inOneLine(m_events.constFirst().event.title);
}

QString ShelfExtras::meetingStatus(const QDateTime &start) const {
    const auto now = std::chrono::floor<std::chrono::milliseconds>(m_hosts.clock->now());
    const std::chrono::milliseconds left(start.toMSecsSinceEpoch() -
                                         now.time_since_epoch().count());
    return left <= 0ms ? QStringLiteral("In progress")
                       : QStringLiteral("Starts in %1 min")
                             .arg(std::chrono::ceil<std::chrono::minutes>(left).count());
}

void ShelfExtras::connectCalendar() {
    if (m_connecting) {
        return; // the person is being asked
    }
    m_connecting = m_hosts.calendars->requestAccess([this](const CalendarStore::Answer &answer) {
        m_connecting.reset();
        m_connectError = answer.error;
        if (!answer.error.isEmpty()) {
            setCalendarMessage(answer.error);
            return;
        }
        if (answer.access == CalendarAccess::Granted) {
            setCalendarMessage({});
        } else if (answer.access == CalendarAccess::Denied) {
            setCalendarMessage(
                QStringLiteral("Calendar access denied. Enable it in System Settings → Privacy & "
                               "Security → Calendars."));
        }
        refreshEvents();
    });
}

void ShelfExtras::refreshEvents() {
    if (m_hosts.calendars->access() != CalendarAccess::Granted) {
        m_loadingEvents.reset();
        setEvents({});
        return;
    }
    const Clock::TimePoint now = m_hosts.clock->now();
    m_loadingEvents = m_hosts.calendars->events(
        now, now + window, [this](const QList<CalendarEvent> &events) { showEvents(events); });
}

void ShelfExtras::readEventsAnew() {
    m_hosts.calendars->expectChange();
    refreshEvents();
}

void ShelfExtras::showEvents(const QList<CalendarEvent> &events) {
    const Clock::TimePoint now = m_hosts.clock->now();
    QList<Meeting> meetings;
    for (const CalendarEvent &event : events) {
        if (!event.allDay && event.end > now) {
            meetings.append({event});
        }
    }
    std::ranges::stable_sort(meetings, {},
                             [](const Meeting &meeting) { return meeting.event.start; });
    setEvents(meetings);
    // An answer that holds for this run only shows meetings, but the reason stays.
    setCalendarMessage(!m_connectError.isEmpty() ? m_connectError
                       : meetings.isEmpty() ? QStringLiteral("No meetings in the next seven days.")
                                            : QString());
}

void ShelfExtras::setEvents(const QList<Meeting> &events) {
    if (events != m_events) {
        m_events = events;
        Q_EMIT eventsChanged();
    }
}

void ShelfExtras::setCalendarMessage(const QString &message) {
    if (message != m_calendarMessage) {
        m_calendarMessage = message;
        Q_EMIT calendarMessageChanged();
    }
}

} // namespace perchly
