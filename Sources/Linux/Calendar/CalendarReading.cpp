#include "CalendarReading.h"

#include <QHash>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <iterator>

namespace perchly {

namespace {

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
        }
    }
    return reading;
}

void CalendarReading::keepFrom(const CalendarReading &earlier) {
    for (File &file : files) {
        const auto before = std::ranges::find(earlier.files, file.path, &File::path);
        if (file.torn && before != earlier.files.cend()) {
            file.events = before->events;
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
    QMultiHash<QString, qsizetype> known;
    for (const File &file : files) {
        for (CalendarEvent event : file.events) {
            if (!isInside(event, from, to)) {
                continue;
            }
            const auto others = known.values(event.identifier);
            const QString identifier = event.identifier;
            const bool same = std::ranges::any_of(others, [&](qsizetype other) {
                event.identifier = events[other].identifier;
                return events[other] == event;
            });
            event.identifier = others.isEmpty()
                                   ? identifier
                                   : QStringLiteral("%1#%2").arg(identifier).arg(others.size());
            if (!same) {
                known.insert(identifier, events.size());
                events.append(event);
            }
        }
    }
    return events;
}

} // namespace perchly
