#pragma once

#include "PendingCalls.h"

#include <QtGlobal>

#include <algorithm>

namespace perchly {

/// Time, in UTC, that only the test moves.
class FakeClock : public Clock {
    using Span = std::chrono::milliseconds;

public:
    explicit FakeClock(TimePoint start = TimePoint(std::chrono::seconds(1'790'000'000)))
        : m_now(start) {}

    TimePoint now() const override { return m_now; }
    TimePoint startOfDay() const override { return std::chrono::floor<std::chrono::days>(m_now); }
    TimePoint startOfNextDay() const override { return startOfDay() + std::chrono::days(1); }
    std::chrono::nanoseconds uptime() const override { return m_elapsed + m_slept; }
    Task after(Span delay, Action action) override {
        return m_entries.add({m_elapsed + delay, Span(0), false, std::move(action)});
    }
    Task every(Span period, Action action) override {
        return m_entries.add({m_elapsed + period, period, false, std::move(action)});
    }
    Task at(TimePoint moment, Action action) override {
        const auto delay = std::chrono::ceil<Span>(moment - m_now);
        return m_entries.add(
            {m_elapsed + std::max(delay, Span(0)), Span(0), true, std::move(action)});
    }

    /// Lets time pass and runs due actions in order.
    void advance(Span span) {
        const Span end = m_elapsed + span;
        while (m_entries.count() > 0) {
            const auto next = std::ranges::min_element(
                m_entries.all(), {}, [](const auto &entry) { return entry->due; });
            const auto entry = *next; // the action may destroy its task
            if (entry->due > end) {
                break;
            }
            const Span step = std::max(entry->due - m_elapsed, Span(0));
            m_elapsed += step;
            m_now += step;
            fire(entry);
        }
        m_now += end - m_elapsed;
        m_elapsed = end;
    }

    /// The machine sleeps and wakes up: the wall clock advances, timers do not.
    void sleepFor(Span span) {
        m_slept += span;
        setWallClock(m_now + span);
    }

    /// The user sets the wall clock.
    void setWallClock(TimePoint now) {
        m_now = now;
        const auto entries = m_entries.all();
        for (const auto &entry : entries) {
            if (entry->followsWallClock) {
                fire(entry);
            }
        }
    }

    [[nodiscard]] qsizetype scheduledTasks() const { return qsizetype(m_entries.count()); }

private:
    struct Entry {
        Span due;
        Span period;
        bool followsWallClock;
        Action action;
    };

    void fire(const std::shared_ptr<Entry> &entry) {
        if (entry->period > Span(0)) {
            entry->due += entry->period;
        } else if (!m_entries.remove(entry)) {
            return; // cancelled by an earlier action
        }
        entry->action();
    }

    TimePoint m_now;
    Span m_elapsed{0}; ///< by which timers run
    Span m_slept{0};
    PendingCalls<Entry> m_entries;
};

} // namespace perchly
