#include "EventSeries.h"

#include <algorithm>
#include <set>

namespace perchly {

namespace {

constexpr std::size_t mostOccurrences = 2000;
constexpr std::int64_t longestReach = 400 * secondsPerDay;

/// Whether a time that a calendar gives for an occurrence means the one that starts then.
bool means(const CalendarTime &named, const CalendarTime &start) {
    return named.isDay || start.isDay ? named.day() == start.day()
                                      : named.moment() == start.moment();
}

/// How far apart the times of a rule are, if it says nothing else.
std::optional<std::int64_t> plainStep(const icalrecurrencetype &rule) {
    const bool isPlain = std::ranges::all_of(
        std::initializer_list<const short *>{rule.by_second, rule.by_minute, rule.by_hour,
                                             rule.by_day, rule.by_month_day, rule.by_year_day,
                                             rule.by_week_no, rule.by_month, rule.by_set_pos},
        [](const short *values) { return *values == ICAL_RECURRENCE_ARRAY_MAX; });
    const bool known = rule.freq == ICAL_DAILY_RECURRENCE || rule.freq == ICAL_WEEKLY_RECURRENCE;
    if (!isPlain || !known || rule.rscale != nullptr || rule.interval < 1) {
        return std::nullopt;
    }
    return rule.interval * secondsPerDay * (rule.freq == ICAL_WEEKLY_RECURRENCE ? 7 : 1);
}

/// A count keeps the library from starting near the window: where the end follows from it, the rule
/// gets that instead.
void replaceCount(icalrecurrencetype &rule, std::int64_t start) {
    const auto step = plainStep(rule);
    if (rule.count > 0 && step && icaltime_is_null_time(rule.until) != 0) {
        const std::int64_t times = std::min(rule.count, 1'000'000) - 1;
        rule.until = icaltime_from_timet_with_zone(start + times * *step, 0, nullptr);
        rule.count = 0;
    }
}

class Series {
public:
    Series(const std::vector<Event> &events, const TimeWindow &window)
        : m_window(window) {
        for (const Event &event : events) {
            keepNewest(event.insteadOf ? m_exceptions : m_masters, event);
        }
        for (const Event &event : events) {
            m_reach = std::max(m_reach, event.days * secondsPerDay + event.seconds);
            m_reach = std::max(m_reach, std::abs(shiftOf(event)));
        }
        m_reach = std::min(m_reach, longestReach) + secondsPerDay;
    }

    std::vector<Occurrence> find() {
        const bool gone = !m_masters.empty() && std::ranges::all_of(m_masters, &Event::isCancelled);
        for (const Event *master : m_masters) {
            if (!master->isCancelled) {
                repeat(*master);
            }
        }
        for (const Event *exception : m_exceptions) {
            if (!exception->isCancelled && !gone) {
                add(*exception, exception->start.local, *exception->insteadOf, true);
            }
        }
        return std::move(m_found);
    }

private:
    static const CalendarTime &identity(const Event &event) {
        return event.insteadOf ? *event.insteadOf : event.start;
    }

    static std::int64_t shiftOf(const Event &event) {
        return event.insteadOf && event.andFollowing
                   ? event.start.local - event.start.zone->toLocal(event.insteadOf->moment())
                   : 0;
    }

    static void keepNewest(std::vector<const Event *> &kept, const Event &event) {
        const auto same = std::ranges::find_if(kept, [&event](const Event *other) {
            return means(identity(*other), identity(event));
        });
        if (same == kept.end()) {
            kept.push_back(&event);
        } else if ((*same)->revision <= event.revision) {
            *same = &event;
        }
    }

    void repeat(const Event &master) {
        std::set<std::int64_t> starts{master.start.local};
        for (const CalendarTime &more : master.moreStarts) {
            starts.insert(more.isDay ? more.local : master.start.zone->toLocal(more.moment()));
        }
        for (const icalrecurrencetype &rule : master.rules) {
            applyRule(master, rule, starts);
        }
        for (const std::int64_t local : starts) {
            const CalendarTime start{local, master.start.zone, master.start.isDay};
            const auto isIt = [&start](const CalendarTime &named) { return means(named, start); };
            if (std::ranges::none_of(master.leftOut, isIt)) {
                replaceOrAdd(master, start);
            }
        }
    }

    /// Times by the clock of the event, from a little before the window to a little after it.
    void applyRule(const Event &master, icalrecurrencetype rule, std::set<std::int64_t> &starts) {
        const Zone &zone = *master.start.zone;
        const std::int64_t first = zone.toLocal(m_window.from) - m_reach;
        const std::int64_t last = zone.toLocal(m_window.to) + m_reach;
        const auto written = [&master](std::int64_t local) {
            return icaltime_from_timet_with_zone(local, master.start.isDay ? 1 : 0, nullptr);
        };
        replaceCount(rule, master.start.local);
        if (rule.count == 0) {
            rule.until = written(std::min(last, lastByRule(master, rule).value_or(last)));
        }
        icalrecur_iterator *iterator = icalrecur_iterator_new(rule, written(master.start.local));
        if (iterator == nullptr) {
            return;
        }
        if (rule.count == 0 && first > master.start.local) {
            icalrecur_iterator_set_start(iterator, written(first));
        }
        std::size_t found = 0;
        for (icaltimetype next = icalrecur_iterator_next(iterator);
             icaltime_is_null_time(next) == 0 && found < mostOccurrences;
             next = icalrecur_iterator_next(iterator)) {
            next.zone = nullptr;
            const std::int64_t local = icaltime_as_timet(next);
            if (local > last) {
                break;
            }
            if (local >= first) {
                starts.insert(local);
                ++found;
            }
        }
        icalrecur_iterator_free(iterator);
    }

    static std::optional<std::int64_t> lastByRule(const Event &master,
                                                  const icalrecurrencetype &rule) {
        if (icaltime_is_null_time(rule.until) != 0) {
            return std::nullopt;
        }
        icaltimetype until = rule.until;
        until.zone = nullptr;
        const std::int64_t local = icaltime_as_timet(until);
        if (icaltime_is_date(rule.until) != 0) {
            return local + secondsPerDay - 1; // that day too
        }
        return icaltime_is_utc(rule.until) != 0 ? master.start.zone->toLocal(local) : local;
    }

    void replaceOrAdd(const Event &master, const CalendarTime &start) {
        const Event *following = nullptr;
        for (const Event *exception : m_exceptions) {
            if (means(*exception->insteadOf, start)) {
                return; // which speaks for itself
            }
            const std::int64_t from = exception->insteadOf->moment();
            if (exception->andFollowing && from < start.moment() &&
                (following == nullptr || following->insteadOf->moment() < from)) {
                following = exception;
            }
        }
        if (following == nullptr) {
            add(master, start.local, start, master.recurs());
        } else if (!following->isCancelled) {
            add(*following, following->start.zone->toLocal(start.moment()) + shiftOf(*following),
                start, true);
        }
    }

    void add(const Event &event, std::int64_t local, const CalendarTime &original, bool oneOfMany) {
        const std::int64_t start = event.start.zone->toMoment(local);
        const std::int64_t end = std::max(event.endAfter(local), start);
        const bool inside = start < m_window.to &&
                            (end > m_window.from || (end == start && start >= m_window.from));
        if (inside && m_found.size() < mostOccurrences) {
            m_found.push_back(
                {&event, start, end,
                 oneOfMany ? event.uid + '/' + std::to_string(original.moment()) : event.uid});
        }
    }

    const TimeWindow m_window;
    std::vector<const Event *> m_masters;
    std::vector<const Event *> m_exceptions;
    std::int64_t m_reach = 0; ///< how far an occurrence may be from the time that the rule gives
    std::vector<Occurrence> m_found;
};

} // namespace

std::vector<Occurrence> occurrencesOf(const std::vector<Event> &events, const TimeWindow &window) {
    return Series(events, window).find();
}

} // namespace perchly
