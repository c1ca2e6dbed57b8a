#include "EventSeries.h"

#include <algorithm>
#include <set>

namespace perchly {

namespace {

bool isSame(const CalendarTime &one, const CalendarTime &other) {
    return one.isDay || other.isDay ? one.day() == other.day() : one.moment() == other.moment();
}

class Series {
public:
    Series(const std::vector<Event> &events, const TimeWindow &window)
        : m_window(window) {
        for (const Event &event : events) {
            keepNewest(event.replaced ? m_exceptions : m_masters, event);
            m_reach = std::max(
                {m_reach, event.days * secondsPerDay + event.seconds, std::abs(shiftOf(event))});
        }
    }

    std::vector<Occurrence> find() {
        if (!m_masters.empty() && std::ranges::all_of(m_masters, &Event::isCancelled)) {
            return {};
        }
        for (const Event *master : m_masters) {
            for (const std::int64_t clock :
                 master->isCancelled ? std::set<std::int64_t>() : startsOf(*master)) {
                replaceOrAdd(*master, {clock, master->start.zone, master->start.isDay});
            }
        }
        for (const Event *exception : m_exceptions) {
            if (!exception->isCancelled) {
                add(*exception, exception->start.clock, *exception->replaced, true);
            }
        }
        return std::move(m_found);
    }

private:
    static void keepNewest(std::vector<const Event *> &kept, const Event &event) {
        const auto identity = [](const Event &of) { return of.replaced.value_or(of.start); };
        const auto same = std::ranges::find_if(
            kept, [&](const Event *other) { return isSame(identity(*other), identity(event)); });
        if (same == kept.end()) {
            kept.push_back(&event);
        } else if ((*same)->revision <= event.revision) {
            *same = &event;
        }
    }

    /// By how much an exception shifts the occurrences after the one it replaces.
    static std::int64_t shiftOf(const Event &event) {
        return event.replacesFollowing
                   ? event.start.clock - event.start.zone->toClock(event.replaced->moment())
                   : 0;
    }

    /// In clock time, from `m_reach` before the window to `m_reach` after it.
    [[nodiscard]] std::set<std::int64_t> startsOf(const Event &master) const {
        const auto clock = [&master](std::int64_t moment) {
            return icaltime_from_timet_with_zone(master.start.zone->toClock(moment), 0, nullptr);
        };
        const auto take = [](icalcomponent *, icaltime_span *span, void *starts) {
            static_cast<std::set<std::int64_t> *>(starts)->insert(span->start);
        };
        std::set<std::int64_t> starts;
        icalcomponent_foreach_recurrence(master.recurrence.get(), clock(m_window.from - m_reach),
                                         clock(m_window.to + m_reach), take, &starts);
        return starts;
    }

    void replaceOrAdd(const Event &master, const CalendarTime &start) {
        const Event *following = nullptr;
        for (const Event *exception : m_exceptions) {
            if (isSame(*exception->replaced, start)) {
                return;
            }
            const std::int64_t from = exception->replaced->moment();
            if (exception->replacesFollowing && from < start.moment() &&
                (following == nullptr || following->replaced->moment() < from)) {
                following = exception;
            }
        }
        if (following == nullptr) {
            add(master, start.clock, start, master.recurs);
        } else if (!following->isCancelled) {
            add(*following, following->start.zone->toClock(start.moment()) + shiftOf(*following),
                start, true);
        }
    }

    void add(const Event &event, std::int64_t clock, const CalendarTime &original,
             bool isOneOfMany) {
        const Zone &zone = *event.start.zone;
        const std::int64_t start = zone.toMoment(clock);
        const std::int64_t end =
            std::max(zone.toMoment(clock + event.days * secondsPerDay) + event.seconds, start);
        const bool isInside =
            start < m_window.to && (end > m_window.from || start == m_window.from);
        if (isInside) {
            m_found.push_back({&event, start, end, original.moment(), isOneOfMany});
        }
    }

    const TimeWindow m_window;
    std::vector<const Event *> m_masters;
    std::vector<const Event *> m_exceptions;
    std::int64_t m_reach = secondsPerDay; ///< max shift of an occurrence from its start by the rule
    std::vector<Occurrence> m_found;
};

} // namespace

std::vector<Occurrence> occurrencesOf(const std::vector<Event> &events, const TimeWindow &window) {
    return Series(events, window).find();
}

} // namespace perchly
