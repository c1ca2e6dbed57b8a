#include "CalendarPlaces.h"
#include "CalendarService.h"
#include "EventSeries.h"
#include "ProcessLimits.h"

#include <QFile>
#include <QHash>

#include <cstdio>
#include <string_view>

using namespace perchly;
using namespace Qt::StringLiterals;

namespace {

constexpr int failure = 1;
constexpr int usage = 64;
constexpr int maxEvents = 4000;
constexpr qsizetype maxText = 32 * 1024;

QString textOf(const char *text) {
    return QString::fromUtf8(text).left(maxText);
}

/// Where servers put the link of a video meeting, beside or instead of the other texts.
const char *conferenceLink(icalcomponent *event) {
    if (icalproperty *property =
            icalcomponent_get_first_property(event, ICAL_CONFERENCE_PROPERTY)) {
        return icalproperty_get_conference(property);
    }
    for (icalproperty *property = icalcomponent_get_first_property(event, ICAL_X_PROPERTY);
         property != nullptr; property = icalcomponent_get_next_property(event, ICAL_X_PROPERTY)) {
        const QByteArray name = icalproperty_get_x_name(property);
        if (name == "X-GOOGLE-CONFERENCE" || name == "X-MICROSOFT-SKYPETEAMSMEETINGURL") {
            return icalproperty_get_x(property);
        }
    }
    return nullptr;
}

void write(QDataStream &stream, const Occurrence &occurrence) {
    icalcomponent *event = occurrence.event->component;
    icalproperty *url = icalcomponent_get_first_property(event, ICAL_URL_PROPERTY);
    QString identifier = QString::fromUtf8(icalcomponent_get_uid(event));
    if (occurrence.isOneOfMany) {
        identifier += u'/' + QString::number(occurrence.original);
    }
    QString notes = textOf(icalcomponent_get_description(event));
    const QString link = textOf(conferenceLink(event));
    if (!link.isNull() && !notes.contains(link)) {
        notes += (notes.isEmpty() ? QString() : u"\n"_s) + link;
    }
    stream << true << identifier << textOf(icalcomponent_get_summary(event))
           << qint64(occurrence.start) << qint64(occurrence.end) << occurrence.event->start.isDay
           << textOf(url == nullptr ? nullptr : icalproperty_get_url(url))
           << textOf(icalcomponent_get_location(event)) << notes;
}

void write(QDataStream &stream, const Calendar &calendar) {
    Zones zones(calendar);
    std::vector<std::vector<Event>> series;
    QHash<QByteArray, std::size_t> numbers; // index of the series, by UID
    for (const auto &component : calendar.events) {
        if (auto event = readEvent(component.get(), zones)) {
            const QByteArray uid = icalcomponent_get_uid(component.get());
            const auto number = uid.isEmpty() ? series.size() : numbers.value(uid, series.size());
            if (number == series.size()) {
                series.emplace_back();
                numbers.insert(uid, number);
            }
            series[number].push_back(std::move(*event));
        }
    }
    int count = 0;
    for (const std::vector<Event> &events : series) {
        for (const Occurrence &occurrence : occurrencesOf(events, calendar.window)) {
            if (count++ < maxEvents) {
                write(stream, occurrence);
            }
        }
    }
    stream << false << calendar.isWhole;
}

} // namespace

int main(int count, char **arguments) {
    limitProcess(384);
    icalerror_set_errors_are_fatal(0);
    const std::string_view command = count > 1 ? arguments[1] : "";
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    if (count == 2 && command == "list") {
        CalendarList list = findCalendars();
        addServiceCalendars(list);
        stream << list;
    } else if (count == 5 && command == "events") {
        Calendar calendar;
        calendar.window = {QByteArray(arguments[2]).toLongLong(),
                           QByteArray(arguments[3]).toLongLong()};
        const QString source = QFile::decodeName(arguments[4]);
        if (!source.startsWith("service:"_L1)) {
            calendar.addPlace(source);
        } else if (!addServiceCalendar(source.section(u':', 1), calendar)) {
            return failure;
        }
        write(stream, calendar);
    } else {
        std::fputs("usage: perchly-calendarreader list | events FROM TO SOURCE\n", stderr);
        return usage;
    }
    const auto size = std::size_t(bytes.size());
    return std::fwrite(bytes.constData(), 1, size, stdout) == size ? 0 : failure;
}
