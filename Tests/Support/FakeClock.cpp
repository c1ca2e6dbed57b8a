#include "FakeClock.h"

#include <algorithm>

namespace perchly {

using std::chrono::milliseconds;

struct FakeClock::Entry {
    milliseconds due;
    milliseconds period;
    std::optional<TimePoint> moment;
    Action action;
};

class FakeClock::Handle : public ScheduledTask {
public:
    Handle(std::list<std::shared_ptr<Entry>> &entries, std::shared_ptr<Entry> entry)
        : m_entries(entries)
        , m_entry(std::move(entry)) {}
    ~Handle() override { m_entries.remove(m_entry); }

private:
    std::list<std::shared_ptr<Entry>> &m_entries;
    std::shared_ptr<Entry> m_entry;
};

FakeClock::FakeClock(TimePoint start)
    : m_now(start) {}

Clock::TimePoint FakeClock::startOfDay() const {
    return std::chrono::floor<std::chrono::days>(m_now);
}

Clock::TimePoint FakeClock::startOfNextDay() const {
    return startOfDay() + std::chrono::days(1);
}

Task FakeClock::schedule(milliseconds delay, milliseconds period, std::optional<TimePoint> moment,
                         Action action) {
    auto entry =
        std::make_shared<Entry>(Entry{m_elapsed + delay, period, moment, std::move(action)});
    m_entries.push_back(entry);
    return std::make_unique<Handle>(m_entries, entry);
}

Task FakeClock::after(milliseconds delay, Action action) {
    return schedule(delay, milliseconds(0), std::nullopt, std::move(action));
}

Task FakeClock::every(milliseconds period, Action action) {
    return schedule(period, period, std::nullopt, std::move(action));
}

Task FakeClock::at(TimePoint moment, Action action) {
    const auto delay = std::chrono::ceil<milliseconds>(moment - m_now);
    return schedule(std::max(delay, milliseconds(0)), milliseconds(0), moment, std::move(action));
}

void FakeClock::fire(std::list<std::shared_ptr<Entry>>::iterator position) {
    const auto entry = *position; // outlives a handle that the action destroys
    if (entry->period > milliseconds(0)) {
        entry->due += entry->period;
    } else {
        m_entries.erase(position);
    }
    const Action action = entry->action;
    action();
}

void FakeClock::advance(milliseconds span) {
    const milliseconds end = m_elapsed + span;
    while (true) {
        const auto next = std::ranges::min_element(
            m_entries, [](const auto &a, const auto &b) { return a->due < b->due; });
        if (next == m_entries.end() || (*next)->due > end) {
            break;
        }
        const milliseconds step = std::max((*next)->due - m_elapsed, milliseconds(0));
        m_elapsed += step;
        m_now += step;
        fire(next);
    }
    m_now += end - m_elapsed;
    m_elapsed = end;
}

void FakeClock::sleepFor(milliseconds span) {
    m_now += span;
    wallClockJumped();
}

void FakeClock::setWallClock(TimePoint now) {
    m_now = now;
    wallClockJumped();
}

void FakeClock::wallClockJumped() {
    std::list<std::shared_ptr<Entry>> told;
    std::ranges::copy_if(m_entries, std::back_inserter(told),
                         [](const auto &entry) { return entry->moment.has_value(); });
    for (const auto &entry : told) {
        const auto position = std::ranges::find(m_entries, entry);
        if (position != m_entries.end()) {
            fire(position);
        }
    }
}

} // namespace perchly
