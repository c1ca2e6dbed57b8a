#pragma once

#include "Clock.h"

namespace perchly {

/// The system's time, with timers in the thread's event loop. Delays of up to ten seconds are exact
/// to about a millisecond; longer ones to 5 %, which saves wake-ups. No delay exceeds 24 days.
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
