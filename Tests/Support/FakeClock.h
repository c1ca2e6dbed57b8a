#pragma once

#include "Clock.h"

#include <list>
#include <memory>
#include <optional>
#include <QtGlobal>

namespace perchly {

/// Time that moves only when a test moves it, in UTC.
class FakeClock : public Clock {
public:
    explicit FakeClock(TimePoint start = TimePoint(std::chrono::seconds(1'790'000'000)));

    TimePoint now() const override { return m_now; }
    TimePoint startOfDay() const override;
    TimePoint startOfNextDay() const override;
    Task after(std::chrono::milliseconds delay, Action action) override;
    Task every(std::chrono::milliseconds period, Action action) override;
    Task at(TimePoint moment, Action action) override;

    /// Lets time pass and runs what becomes due, in order.
    void advance(std::chrono::milliseconds span);

    /// The machine sleeps: the wall clock goes on, timers do not, and then it wakes up.
    void sleepFor(std::chrono::milliseconds span);

    /// The person sets the wall clock.
    void setWallClock(TimePoint now);

    [[nodiscard]] qsizetype scheduledTasks() const { return qsizetype(m_entries.size()); }

private:
    struct Entry;
    class Handle;

    Task schedule(std::chrono::milliseconds delay, std::chrono::milliseconds period,
                  std::optional<TimePoint> moment, Action action);
    void wallClockJumped();
    void fire(std::list<std::shared_ptr<Entry>>::iterator position);

    TimePoint m_now;
    std::chrono::milliseconds m_elapsed{0};
    std::list<std::shared_ptr<Entry>> m_entries;
};

} // namespace perchly
