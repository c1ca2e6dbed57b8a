#include "Event.h"

#include <algorithm>

namespace perchly {

namespace {

icaltimetype withoutZone(std::int64_t clock, bool isDay) {
    return icaltime_from_timet_with_zone(clock, isDay ? 1 : 0, nullptr);
}

class EventReader {
public:
    EventReader(icalcomponent *component, Zones &zones)
        : m_zones(zones) {
        m_event.component = component;
    }

    std::optional<Event> read() {
        icalproperty *property = first(ICAL_DTSTART_PROPERTY);
        const icaltimetype start =
            property == nullptr ? icaltime_null_time() : icalproperty_get_dtstart(property);
        if (icaltime_is_null_time(start) != 0 || icaltime_is_valid_time(start) == 0) {
            return std::nullopt;
        }
        m_event.start = timeOf(start, property);
        readDuration();
        readRecurrence();
        if ((property = first(ICAL_RECURRENCEID_PROPERTY)) != nullptr) {
            m_event.replaced = timeOf(icalproperty_get_recurrenceid(property), property);
            icalparameter *range = icalproperty_get_first_parameter(property, ICAL_RANGE_PARAMETER);
            m_event.replacesFollowing =
                range != nullptr && icalparameter_get_range(range) == ICAL_RANGE_THISANDFUTURE;
        }
        m_event.isCancelled = icalcomponent_get_status(m_event.component) == ICAL_STATUS_CANCELLED;
        m_event.revision = icalcomponent_get_sequence(m_event.component);
        return std::move(m_event);
    }

private:
    [[nodiscard]] icalproperty *first(icalproperty_kind kind) const {
        return icalcomponent_get_first_property(m_event.component, kind);
    }

    CalendarTime timeOf(const icaltimetype &time, icalproperty *property) {
        icaltimetype floating = time;
        floating.zone = nullptr;
        const bool isDay = icaltime_is_date(time) != 0;
        icalparameter *zone = icalproperty_get_first_parameter(property, ICAL_TZID_PARAMETER);
        const char *name = zone == nullptr || isDay ? nullptr : icalparameter_get_tzid(zone);
        return {icaltime_as_timet(floating),
                &m_zones.find(icaltime_is_utc(time) != 0 ? "UTC"
                              : name == nullptr          ? ""
                                                         : name),
                isDay};
    }

    void readDuration() {
        const CalendarTime &start = m_event.start;
        if (icalproperty *property = first(ICAL_DTEND_PROPERTY)) {
            const CalendarTime end = timeOf(icalproperty_get_dtend(property), property);
            if (start.isDay) {
                m_event.days = std::max<std::int64_t>(end.day() - start.day(), 1);
            } else {
                m_event.seconds = std::max<std::int64_t>(end.moment() - start.moment(), 0);
            }
        } else if ((property = first(ICAL_DURATION_PROPERTY)) != nullptr) {
            const icaldurationtype duration = icalproperty_get_duration(property);
            m_event.days = std::int64_t(duration.weeks) * 7 + duration.days;
            m_event.seconds = std::int64_t(duration.hours) * 3600 +
                              std::int64_t(duration.minutes) * 60 + duration.seconds;
        } else {
            m_event.days = start.isDay ? 1 : 0;
        }
    }

    void readRecurrence() {
        m_event.recurrence.reset(icalcomponent_new(ICAL_VEVENT_COMPONENT));
        const icaltimetype start = byClock(m_event.start);
        add(icalproperty_new_dtstart(start));
        add(icalproperty_new_rdate({start, {}})); // even if no rule yields it
        for (icalproperty *property = first(ICAL_ANY_PROPERTY); property != nullptr;
             property = icalcomponent_get_next_property(m_event.component, ICAL_ANY_PROPERTY)) {
            const icalproperty_kind kind = icalproperty_isa(property);
            if (kind == ICAL_RRULE_PROPERTY) {
                addRule(property);
            } else if (kind == ICAL_RDATE_PROPERTY) {
                const icaldatetimeperiodtype date = icalproperty_get_rdate(property);
                const bool isPeriod = icaltime_is_null_time(date.time) != 0;
                const CalendarTime time =
                    timeOf(isPeriod ? date.period.start : date.time, property);
                add(icalproperty_new_rdate({byClock(time), {}}));
            } else if (kind == ICAL_EXDATE_PROPERTY) {
                add(icalproperty_new_exdate(
                    byClock(timeOf(icalproperty_get_exdate(property), property))));
            }
        }
        m_event.recurs =
            first(ICAL_RRULE_PROPERTY) != nullptr || first(ICAL_RDATE_PROPERTY) != nullptr;
    }

    void addRule(icalproperty *property) {
        icalrecurrencetype rule = icalproperty_get_rrule(property);
        if (icaltime_is_null_time(rule.until) == 0) {
            const CalendarTime until = timeOf(rule.until, property);
            rule.until = withoutZone(until.isDay ? until.clock + secondsPerDay - 1 // inclusive
                                     : icaltime_is_utc(rule.until) != 0
                                         ? m_event.start.zone->toClock(until.clock)
                                         : until.clock,
                                     m_event.start.isDay);
        }
        add(icalproperty_new_rrule(rule));
    }

    /// If either is a whole day, so is the result: it excludes any time on that day.
    [[nodiscard]] icaltimetype byClock(const CalendarTime &time) const {
        const bool isDay = time.isDay || m_event.start.isDay;
        return withoutZone(isDay ? time.clock : m_event.start.zone->toClock(time.moment()), isDay);
    }

    void add(icalproperty *property) {
        icalcomponent_add_property(m_event.recurrence.get(), property);
    }

    Zones &m_zones;
    Event m_event;
};

} // namespace

std::optional<Event> readEvent(icalcomponent *component, Zones &zones) {
    return EventReader(component, zones).read();
}

} // namespace perchly
