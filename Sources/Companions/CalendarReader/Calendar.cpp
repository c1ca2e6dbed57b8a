#include "Calendar.h"

#include <QDir>

#include <algorithm>
#include <cstdio>

namespace perchly {

namespace {

constexpr std::int64_t margin = 2 * secondsPerDay; // more than time zones differ

bool mayTakePlace(icalcomponent *event, const TimeWindow &window) {
    const auto first = [event](icalproperty_kind kind) {
        return icalcomponent_get_first_property(event, kind);
    };
    const auto clockTime = [&first](icalproperty_kind kind,
                                    std::int64_t otherwise) -> std::int64_t {
        icalproperty *property = first(kind);
        if (property == nullptr) {
            return otherwise;
        }
        icaltimetype time = icalvalue_get_datetimedate(icalproperty_get_value(property));
        time.zone = nullptr;
        return icaltime_as_timet(time);
    };
    const std::int64_t start = clockTime(ICAL_DTSTART_PROPERTY, window.to);
    std::int64_t end = clockTime(ICAL_DTEND_PROPERTY, start);
    if (icalproperty *duration = first(ICAL_DURATION_PROPERTY)) {
        end += std::abs(icaldurationtype_as_int(icalproperty_get_duration(duration)));
    }
    return first(ICAL_RRULE_PROPERTY) != nullptr || first(ICAL_RDATE_PROPERTY) != nullptr ||
           first(ICAL_RECURRENCEID_PROPERTY) != nullptr ||
           (start < window.to + margin && std::max(start, end) > window.from - margin);
}

void add(Calendar &calendar, IcalPtr<icalcomponent> component) {
    const auto kind = component ? icalcomponent_isa(component.get()) : ICAL_NO_COMPONENT;
    if (kind == ICAL_VEVENT_COMPONENT && mayTakePlace(component.get(), calendar.window)) {
        calendar.events.push_back(std::move(component));
    } else if (kind == ICAL_VTIMEZONE_COMPONENT) {
        IcalPtr<icaltimezone> zone(icaltimezone_new());
        if (icaltimezone_set_component(zone.get(), component.get()) != 0) {
            static_cast<void>(component.release()); // the zone owns it
            calendar.zones.try_emplace(icaltimezone_get_tzid(zone.get()), std::move(zone));
        }
    }
}

/// Without its VCALENDAR line, libical returns one event at a time, so that only one is in memory.
void read(std::FILE *file, Calendar &calendar) {
    const auto nextLine = [](char *buffer, std::size_t size, void *from) {
        return std::fgets(buffer, int(size), static_cast<std::FILE *>(from));
    };
    const IcalPtr<icalparser> parser(icalparser_new());
    icalparser_set_gen_data(parser.get(), file);
    bool isWhole = false;
    while (const IcalPtr<char> line{icalparser_get_line(parser.get(), nextLine)}) {
        const char *text = line.get() + (qstrncmp(line.get(), "\xEF\xBB\xBF", 3) == 0 ? 3 : 0);
        const bool isEnd = qstrnicmp(text, "END:VCALENDAR", 13) == 0;
        isWhole = *text == '\0' ? isWhole : isEnd;
        if (!isEnd && qstrnicmp(text, "BEGIN:VCALENDAR", 15) != 0) {
            add(calendar, IcalPtr<icalcomponent>(icalparser_add_line(parser.get(), line.get())));
        }
    }
    calendar.isWhole = calendar.isWhole && isWhole;
    std::fclose(file);
}

} // namespace

void Calendar::addPlace(const QString &path) {
    const QDir folder(path);
    const auto files =
        folder.exists() ? folder.entryInfoList({QStringLiteral("*.ics")}, QDir::Files, QDir::Name)
                        : QFileInfoList({QFileInfo(path)});
    for (const QFileInfo &info : files) {
        // Opening a pipe would block.
        const QByteArray name = QFile::encodeName(info.filePath());
        std::FILE *file = info.isFile() ? std::fopen(name.constData(), "re") : nullptr;
        isWhole = isWhole && file != nullptr;
        if (file != nullptr) {
            read(file, *this);
        }
    }
}

void Calendar::addText(const QByteArray &text) {
    QByteArray copy = text; // fmemopen takes a mutable buffer
    read(fmemopen(copy.data(), std::size_t(copy.size()), "r"), *this);
}

} // namespace perchly
