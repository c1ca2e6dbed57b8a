#pragma once

#include "Clock.h"

#include <QByteArray>

#include <utility>

namespace perchly {

/// The system's time, with timers in the thread's event loop. Delays of up to ten seconds are exact
/// to about a millisecond; longer ones to 5 %, which saves wake-ups. No delay exceeds 24 days.
class QtClock : public Clock {
public:
    /// The zone file is the link that changes with the time zone.
    explicit QtClock(QByteArray zoneFile = QByteArrayLiteral("/etc/localtime"))
        : m_zoneFile(std::move(zoneFile)) {}

    [[nodiscard]] TimePoint now() const override;
    [[nodiscard]] TimePoint startOfDay() const override;
    [[nodiscard]] TimePoint startOfNextDay() const override;
    [[nodiscard]] std::chrono::nanoseconds uptime() const override;
    [[nodiscard]] Task after(std::chrono::milliseconds delay, Action action) override;
    [[nodiscard]] Task every(std::chrono::milliseconds period, Action action) override;
    [[nodiscard]] Task at(TimePoint moment, Action action) override;

private:
    const QByteArray m_zoneFile;
};

} // namespace perchly
