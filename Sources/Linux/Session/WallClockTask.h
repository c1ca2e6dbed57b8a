#pragma once

#include "Clock.h"

#include <QSocketNotifier>

#include <optional>

namespace perchly {

/// Runs an action once, from the event loop, when the wall clock reaches a moment, or earlier when
/// somebody sets the clock or the machine wakes up. It costs one file descriptor and no wake-ups.
class WallClockTask : public ScheduledTask {
public:
    WallClockTask(Clock::TimePoint moment, Clock::Action action);
    ~WallClockTask() override;

    /// False when the system has no timer left; the action then never runs.
    [[nodiscard]] bool isScheduled() const { return m_notifier.has_value(); }

private:
    void fire();

    Clock::Action m_action;
    int m_timer = -1;
    std::optional<QSocketNotifier> m_notifier;
};

} // namespace perchly
