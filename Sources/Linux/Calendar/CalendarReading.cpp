#include "CalendarReading.h"

#include <QHash>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <iterator>
#include <unordered_set>

namespace perchly {

namespace {

constexpr int mostKept = 10;

QString textIn(const QJsonObject &line, const char *name) {
    const QJsonValue value = line.value(QLatin1StringView(name));
    return value.isString() ? value.toString() : QString();
}

/// The nearest moment of which the distance to now can be counted: an event may last for longer.
Clock::TimePoint timeIn(const QJsonObject &line, const char *name) {
    using std::chrono::seconds;
    constexpr auto furthest = std::chrono::floor<seconds>(Clock::TimePoint::duration::max() / 2);
    const seconds said(line.value(QLatin1StringView(name)).toInteger());
    return Clock::TimePoint(std::clamp(said, -furthest, furthest));
}

CalendarEvent eventIn(const QJsonObject &line) {
    return {.identifier = textIn(line, "event"),
            .title = textIn(line, "title"),
            .start = timeIn(line, "start"),
            .end = timeIn(line, "end"),
            .allDay = line.value(QLatin1StringView("allDay")).toBool(),
            .url = textIn(line, "url"),
            .location = textIn(line, "location"),
            .notes = textIn(line, "notes")};
}

bool isOfService(const CalendarReading::File &file) {
    return file.path.startsWith(QLatin1StringView("service:"));
}

bool isInside(const CalendarEvent &event, Clock::TimePoint from, Clock::TimePoint to) {
    return event.start < to &&
           (event.end > from || (event.start == event.end && event.end == from));
}

/// Of all that events have, as hostile ones may differ in anything and number thousands.
struct EventHash {
    std::size_t operator()(const CalendarEvent &event) const {
        return qHashMulti(std::size_t(QHashSeed::globalSeed()), event.identifier, event.title,
                          event.start.time_since_epoch().count(),
                          event.end.time_since_epoch().count(), event.allDay, event.url,
                          event.location, event.notes);
    }
};

} // namespace

CalendarReading CalendarReading::parse(const QByteArray &lines) {
    CalendarReading reading;
    for (qsizetype at = 0; at < lines.size();) {
        const qsizetype end = lines.indexOf('\n', at) < 0 ? lines.size() : lines.indexOf('\n', at);
        const QJsonObject line =
            QJsonDocument::fromJson(QByteArray::fromRawData(lines.constData() + at, end - at))
                .object();
        at = end + 1;
        if (line.contains(QLatin1StringView("event"))) {
            const qint64 file = line.value(QLatin1StringView("in")).toInteger(-1);
            if (file >= 0 && file < reading.files.size()) {
                reading.files[file].events.append(eventIn(line));
            }
        } else if (line.contains(QLatin1StringView("file"))) {
            reading.files.append(
                {textIn(line, "file"), line.value(QLatin1StringView("torn")).toBool()});
        } else if (line.contains(QLatin1StringView("folder"))) {
            reading.folders.append(textIn(line, "folder"));
        } else if (line.contains(QLatin1StringView("serviceFolder"))) {
            reading.serviceFolders.append(textIn(line, "serviceFolder"));
        } else if (line.contains(QLatin1StringView("service"))) {
            reading.muteService = true;
        } else if (line.contains(QLatin1StringView("calendar"))) {
            reading.calendars.append({textIn(line, "calendar"), textIn(line, "place")});
        } else if (line.contains(QLatin1StringView("end"))) {
            reading.finished = true;
            reading.cutShort = textIn(line, "end") == QLatin1StringView("some");
        }
    }
    return reading;
}

void CalendarReading::keepFrom(const CalendarReading &earlier) {
    for (File &file : files) {
        const auto before = std::ranges::find(earlier.files, file.path, &File::path);
        if (!file.torn || before == earlier.files.cend()) {
            continue;
        }
        const bool isGood = !before->torn || (before->kept > 0 && before->kept < mostKept);
        if (isGood || isOfService(file)) {
            file.events = before->events;
            file.kept = before->kept + 1;
        }
    }
    if (muteService) {
        std::ranges::copy_if(earlier.files, std::back_inserter(files), isOfService);
    }
}

bool CalendarReading::lacksOfService() const {
    return muteService || std::ranges::any_of(files, [](const File &file) {
               return file.torn && isOfService(file);
           });
}

QList<CalendarEvent> CalendarReading::eventsBetween(Clock::TimePoint from,
                                                    Clock::TimePoint to) const {
    QList<CalendarEvent> events;
    std::unordered_set<CalendarEvent, EventHash> known;
    QHash<QString, qsizetype> counts; ///< of different events with the identifier
    for (const File &file : files) {
        for (const CalendarEvent &event : file.events) {
            if (!isInside(event, from, to) || !known.insert(event).second) {
                continue;
            }
            events.append(event);
            if (const qsizetype others = counts[event.identifier]++; others > 0) {
                events.last().identifier =
                    QStringLiteral("%1#%2").arg(event.identifier).arg(others);
            }
        }
    }
    return events;
}

} // namespace perchly
