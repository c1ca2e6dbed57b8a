#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace perchly {

/// A scheduled action, delayed or repeated. Destroying it cancels the action, which may be done
/// within the action itself. Keep it in one field per purpose: assigning a new task to the field
/// cancels the old one, and an action never outlives the object that holds its task.
class ScheduledTask {
public:
    ScheduledTask() = default;
    virtual ~ScheduledTask() = default;
    ScheduledTask(const ScheduledTask &) = delete;
    ScheduledTask &operator=(const ScheduledTask &) = delete;
};

using Task = std::unique_ptr<ScheduledTask>;

/// Time and timers. Main thread only; every action runs on the main thread, from the event loop.
class Clock {
public:
    using TimePoint = std::chrono::system_clock::time_point;
    using Action = std::function<void()>;

    virtual ~Clock() = default;

    /// The wall clock's time.
    [[nodiscard]] virtual TimePoint now() const = 0;

    /// The first moment of the local calendar day that contains now().
    [[nodiscard]] virtual TimePoint startOfDay() const = 0;

    /// The first moment of the next local calendar day.
    [[nodiscard]] virtual TimePoint startOfNextDay() const = 0;

    /// The time since the machine started, including sleep. Setting the wall clock does not change
    /// it.
    [[nodiscard]] virtual std::chrono::nanoseconds uptime() const = 0;

    /// Runs the action once, after the delay by the monotonic clock.
    [[nodiscard]] virtual Task after(std::chrono::milliseconds delay, Action action) = 0;

    /// Repeats the action, the first time after one period.
    [[nodiscard]] virtual Task every(std::chrono::milliseconds period, Action action) = 0;

    /// Runs the action once, when the wall clock reaches the moment, or earlier if the clock was
    /// set, the machine woke up or the time zone changed: the action must check now() itself and
    /// schedule itself again.
    [[nodiscard]] virtual Task at(TimePoint moment, Action action) = 0;
};

} // namespace perchly
