#include "Event.h"

#include <algorithm>
#include <initializer_list>

namespace perchly {

namespace {

constexpr qsizetype longestTitle = 1024;
constexpr qsizetype maxTextBytes = 32 * 1024;
constexpr std::size_t mostTimes = 10'000;

QString textOf(const char *text, qsizetype longest) {
    return text == nullptr ? QString() : QString::fromUtf8(text).left(longest);
}

CalendarTime timeOf(const icaltimetype &time, icalproperty *property, ZoneTable &zones) {
    CalendarTime result;
    result.isDay = icaltime_is_date(time) != 0;
    icaltimetype floating = time;
    floating.zone = nullptr;
    result.local = icaltime_as_timet(floating);
    icalparameter *zone = icalproperty_get_first_parameter(property, ICAL_TZID_PARAMETER);
    const char *name = zone == nullptr ? nullptr : icalparameter_get_tzid(zone);
    result.zone = icaltime_is_utc(time) != 0        ? &zones.universal()
                  : result.isDay || name == nullptr ? &zones.local()
                                                    : &zones.find(name);
    return result;
}

icalproperty *first(const Event &event, icalproperty_kind kind) {
    return icalcomponent_get_first_property(event.component.get(), kind);
}

template <class Function>
void forEach(const Event &event, icalproperty_kind kind, Function function) {
    for (icalproperty *property = first(event, kind); property != nullptr;
         property = icalcomponent_get_next_property(event.component.get(), kind)) {
        function(property);
    }
}

void readDuration(Event &event, ZoneTable &zones) {
    if (icalproperty *end = first(event, ICAL_DTEND_PROPERTY)) {
        const CalendarTime time = timeOf(icalproperty_get_dtend(end), end, zones);
        if (event.start.isDay) {
            event.days = std::max<std::int64_t>(time.day() - event.start.day(), 1);
        } else {
            event.seconds = std::max<std::int64_t>(time.moment() - event.start.moment(), 0);
        }
    } else if (icalproperty *property = first(event, ICAL_DURATION_PROPERTY)) {
        const icaldurationtype duration = icalproperty_get_duration(property);
        if (duration.is_neg == 0) {
            event.days = std::int64_t(duration.weeks) * 7 + duration.days;
            event.seconds = std::int64_t(duration.hours) * 3600 +
                            std::int64_t(duration.minutes) * 60 + duration.seconds;
        }
    } else {
        event.days = event.start.isDay ? 1 : 0;
    }
}

void readRecurrence(Event &event, ZoneTable &zones) {
    forEach(event, ICAL_RRULE_PROPERTY, [&event](icalproperty *property) {
        event.rules.push_back(icalproperty_get_rrule(property));
    });
    forEach(event, ICAL_RDATE_PROPERTY, [&](icalproperty *property) {
        const icaldatetimeperiodtype when = icalproperty_get_rdate(property);
        const icaltimetype time =
            icaltime_is_null_time(when.time) != 0 ? when.period.start : when.time;
        if (icaltime_is_null_time(time) == 0 && event.moreStarts.size() < mostTimes) {
            event.moreStarts.push_back(timeOf(time, property, zones));
        }
    });
    forEach(event, ICAL_EXDATE_PROPERTY, [&](icalproperty *property) {
        if (event.leftOut.size() < mostTimes) {
            event.leftOut.push_back(timeOf(icalproperty_get_exdate(property), property, zones));
        }
    });
    if (icalproperty *property = first(event, ICAL_RECURRENCEID_PROPERTY)) {
        event.insteadOf = timeOf(icalproperty_get_recurrenceid(property), property, zones);
        icalparameter *range = icalproperty_get_first_parameter(property, ICAL_RANGE_PARAMETER);
        event.andFollowing =
            range != nullptr && icalparameter_get_range(range) == ICAL_RANGE_THISANDFUTURE;
    }
}

/// Where servers put the link of a video meeting, beside or instead of the event's own texts.
QString conferenceLink(const Event &event) {
    QString link;
    const auto take = [&link](icalproperty *property) {
        const char *name = icalproperty_get_x_name(property);
        const std::string_view known = name == nullptr ? "" : name;
        if (link.isNull() &&
            (known == "X-GOOGLE-CONFERENCE" || known == "X-MICROSOFT-SKYPETEAMSMEETINGURL")) {
            link = textOf(icalproperty_get_x(property), longestTitle);
        }
    };
    forEach(event, ICAL_X_PROPERTY, take);
    if (icalproperty *property = first(event, ICAL_CONFERENCE_PROPERTY)) {
        link = textOf(icalproperty_get_conference(property), longestTitle);
    }
    return link;
}

void readTexts(Event &event) {
    const auto text = [&event](icalproperty_kind kind, const char *(*get)(const icalproperty *),
                               qsizetype longest) {
        icalproperty *property = first(event, kind);
        return property == nullptr ? QString() : textOf(get(property), longest);
    };
    event.title = text(ICAL_SUMMARY_PROPERTY, icalproperty_get_summary, longestTitle);
    event.url = text(ICAL_URL_PROPERTY, icalproperty_get_url, longestTitle);
    event.location = text(ICAL_LOCATION_PROPERTY, icalproperty_get_location, maxTextBytes);
    event.notes = text(ICAL_DESCRIPTION_PROPERTY, icalproperty_get_description, maxTextBytes);
    const QString link = conferenceLink(event);
    if (!link.isNull() && !event.notes.contains(link)) {
        event.notes += (event.notes.isEmpty() ? QString() : QStringLiteral("\n")) + link;
    }
}

} // namespace

std::optional<Event> parseEvent(const EventText &text, ZoneTable &zones) {
    Event event;
    event.uid = text.uid;
    event.component.reset(icalcomponent_new_from_string(text.text.c_str()));
    icalproperty *start = event.component ? first(event, ICAL_DTSTART_PROPERTY) : nullptr;
    if (start == nullptr) {
        return std::nullopt;
    }
    const icaltimetype time = icalproperty_get_dtstart(start);
    if (icaltime_is_null_time(time) != 0 || icaltime_is_valid_time(time) == 0) {
        return std::nullopt;
    }
    event.start = timeOf(time, start, zones);
    readDuration(event, zones);
    readRecurrence(event, zones);
    readTexts(event);
    event.isCancelled = icalcomponent_get_status(event.component.get()) == ICAL_STATUS_CANCELLED;
    event.revision = icalcomponent_get_sequence(event.component.get());
    return event;
}

} // namespace perchly
