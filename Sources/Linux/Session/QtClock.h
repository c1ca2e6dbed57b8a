#pragma once

#include "Clock.h"

namespace perchly {

/// The system's time, with timers in the thread's event loop. Delays of up to ten seconds are exact
/// to about a millisecond, longer ones to a twentieth of their length, which saves wake-ups. A
/// delay is cut to 24 days.
class QtClock : public Clock {
public:
    [[nodiscard]] TimePoint now() const override;
    [[nodiscard]] TimePoint startOfDay() const override;
    [[nodiscard]] TimePoint startOfNextDay() const override;
    [[nodiscard]] Task after(std::chrono::milliseconds delay, Action action) override;
    [[nodiscard]] Task every(std::chrono::milliseconds period, Action action) override;
    [[nodiscard]] Task at(TimePoint moment, Action action) override;
};

} // namespace perchly
