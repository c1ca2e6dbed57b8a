#include "Meetings.h"

#include "MeetingLinks.h"
#include "ShownText.h"
#include "TimeText.h"

#include <QDateTime>

#include <algorithm>

namespace perchly {

using namespace std::chrono_literals;

namespace {

constexpr auto window = 7 * 24h;

constexpr auto maxCountdown = 2h;

QDateTime localTime(Clock::TimePoint moment) {
    const auto sinceEpoch = std::chrono::floor<std::chrono::milliseconds>(moment);
    return QDateTime::fromMSecsSinceEpoch(sinceEpoch.time_since_epoch().count());
}

/// Weekday, hour and minute in the user's time zone and format.
QString startText(const CalendarEvent &event) {
    const QDateTime start = localTime(event.start);
    const QLocale locale;
    return locale.dayName(start.date().dayOfWeek(), QLocale::ShortFormat) + u' ' +
           timeOfDay(start.time(), locale);
}

QHash<QString, QUrl> linksOf(const QList<CalendarEvent> &events) {
    QHash<QString, QUrl> links;
    QHash<QString, QUrl> known; // the events of a series mostly have the same texts
    for (const CalendarEvent &event : events) {
        const QString texts = event.url + u'\n' + event.location + u'\n' + event.notes;
        if (!known.contains(texts)) {
            known.insert(texts, findMeetingLink(texts));
        }
        links.insert(event.identifier, known.value(texts));
    }
    return links;
}

} // namespace

Meetings::Meetings(CalendarStore &calendars, Clock &clock, QObject *parent)
    : KeyedRows({"title", "start", "status", "running", "link"}, parent)
    , m_calendars(calendars)
    , m_clock(clock)
    , m_message(tr("Connect Calendar to see upcoming meetings.")) {
    connect(&calendars, &CalendarStore::changed, this, &Meetings::refresh);
    followDay();
}

void Meetings::followDay() {
    m_day = m_clock.at(m_clock.startOfNextDay(), [this] {
        readAgain();
        followDay();
    });
}

QString Meetings::firstTitle() const {
    return m_events.isEmpty() ? QString() : inOneLine(m_events.constFirst().title);
}

QString Meetings::statusOf(const CalendarEvent &event) const {
    const auto left = event.start - m_clock.now();
    if (left <= 0ms) {
        return tr("In progress");
    }
    if (left <= maxCountdown) {
        return tr("Starts in %n min", nullptr,
                  int(std::chrono::ceil<std::chrono::minutes>(left).count()));
    }
    const QLocale locale;
    const QDateTime start = localTime(event.start);
    const QString time = timeOfDay(start.time(), locale);
    const qint64 days = localTime(m_clock.now()).date().daysTo(start.date());
    return days == 0   ? tr("Starts today, %1").arg(time)
           : days == 1 ? tr("Starts tomorrow, %1").arg(time)
                       : tr("Starts %1, %2", "weekday, time")
                             .arg(locale.dayName(start.date().dayOfWeek()), time);
}

void Meetings::connectCalendar() {
    if (m_connecting) {
        return; // the user is being asked
    }
    m_connecting = m_calendars.requestAccess([this](const CalendarStore::Answer &answer) {
        m_connecting.reset();
        m_connectError = answer.error;
        if (!answer.error.isEmpty()) {
            setMessage(answer.error);
            return;
        }
        if (answer.access == CalendarAccess::Granted) {
            setMessage({});
        } else if (answer.access == CalendarAccess::Denied) {
            setMessage(tr("Calendar access is off. Press “Connect Calendar” to turn it on."));
        }
        refresh();
    });
}

void Meetings::refresh() {
    if (m_calendars.access() != CalendarAccess::Granted) {
        m_loading.reset();
        setEvents({});
        return;
    }
    const Clock::TimePoint now = m_clock.now();
    m_loading = m_calendars.events(now, now + window,
                                   [this](const QList<CalendarEvent> &events) { show(events); });
}

void Meetings::readAgain() {
    m_calendars.expectChange();
    refresh();
}

void Meetings::show(const QList<CalendarEvent> &events) {
    const Clock::TimePoint now = m_clock.now();
    QList<CalendarEvent> upcoming;
    std::ranges::copy_if(events, std::back_inserter(upcoming), [now](const CalendarEvent &event) {
        return !event.allDay && event.end > now;
    });
    std::ranges::stable_sort(upcoming, {}, &CalendarEvent::start);
    setEvents(upcoming);
    // If the permission could not be stored, meetings are shown in this run, but the error stays.
    setMessage(!m_connectError.isEmpty()   ? m_connectError
               : !m_calendars.isReadable() ? tr("Your calendars could not all be read.")
               : upcoming.isEmpty()        ? tr("No meetings in the next seven days.")
                                           : QString());
}

void Meetings::setEvents(const QList<CalendarEvent> &events) {
    if (events != m_events) {
        m_events = events;
        m_links = linksOf(events);
        Q_EMIT eventsChanged();
    }
    Rows rows;
    const Clock::TimePoint now = m_clock.now();
    for (const CalendarEvent &event : events) {
        const QString status = statusOf(event);
        rows.append(
            {event.identifier,
             {event.title.isEmpty() ? tr("Meeting") : inOneLine(event.title), startText(event),
              status, event.start <= now, m_links.value(event.identifier)}});
    }
    setRows(rows);
}

void Meetings::setMessage(const QString &message) {
    if (message != m_message) {
        m_message = message;
        Q_EMIT messageChanged();
    }
}

} // namespace perchly
