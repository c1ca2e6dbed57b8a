#include "CalendarReading.h"

#include <QSet>

#include <algorithm>
#include <iterator>
#include <utility>

namespace perchly {

namespace {

constexpr int maxKept = 5;

/// Clamped, so that differences between moments do not overflow.
QDataStream &operator>>(QDataStream &stream, Clock::TimePoint &moment) {
    using std::chrono::seconds;
    constexpr auto maxSeconds = std::chrono::floor<seconds>(Clock::TimePoint::duration::max() / 2);
    qint64 time = 0;
    stream >> time;
    moment = Clock::TimePoint(std::clamp(seconds(time), -maxSeconds, maxSeconds));
    return stream;
}

} // namespace

static std::size_t qHash(const CalendarEvent &event, std::size_t seed) {
    return qHashMulti(seed, event.identifier, event.title, event.location,
                      event.start.time_since_epoch().count());
}

CalendarReading::CalendarReading(CalendarList found, const CalendarReading &earlier)
    : list(std::move(found))
    , isComplete(!list.isServiceMute) {
    std::ranges::copy_if(earlier.list.calendars, std::back_inserter(list.calendars),
                         [this](const FoundCalendar &calendar) {
                             return list.isServiceMute && calendar.source.startsWith(u"service:");
                         });
    for (const FoundCalendar &calendar : std::as_const(list.calendars)) {
        contents.insert(calendar.source, earlier.contents.value(calendar.source));
    }
}

void CalendarReading::take(const QString &source, const QByteArray &answer, bool isRead) {
    Contents now;
    QDataStream stream(answer);
    bool hasMore = false;
    while ((stream >> hasMore).status() == QDataStream::Ok && hasMore) {
        CalendarEvent event;
        stream >> event.identifier >> event.title >> event.start >> event.end >> event.allDay >>
            event.url >> event.location >> event.notes;
        now.events.append(event);
    }
    stream >> now.isWhole;
    isRead = isRead && stream.status() == QDataStream::Ok;
    isComplete = isComplete && isRead;
    Contents &last = contents[source];
    // A file that stays damaged is not just being written, so show its readable part.
    if (!isRead || (!now.isWhole && last.isWhole && last.kept < maxKept)) {
        ++last.kept;
    } else {
        last = now;
    }
}

QList<CalendarEvent> CalendarReading::eventsBetween(Clock::TimePoint from,
                                                    Clock::TimePoint to) const {
    QList<CalendarEvent> events;
    QSet<CalendarEvent> known;
    QHash<QString, int> counts; // of different events with the same identifier
    for (const FoundCalendar &calendar : list.calendars) {
        const QList<CalendarEvent> found = contents.value(calendar.source).events;
        for (const CalendarEvent &event : found) {
            const bool isInside = event.start < to && (event.end > from || event.start == from);
            if (!isInside || known.contains(event)) {
                continue;
            }
            known.insert(event);
            events.append(event);
            if (const int others = counts[event.identifier]++; others > 0) {
                events.last().identifier += u'#' + QString::number(others);
            }
        }
    }
    return events;
}

} // namespace perchly
