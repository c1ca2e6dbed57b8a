#pragma once

#include <QList>
#include <QObject>

#include <cstdint>
#include <functional>
#include <optional>

namespace perchly {

/// One thing that can power the machine, as it reports itself.
struct PowerSource {
    enum class Kind { InternalBattery, Other };

    Kind kind = Kind::Other;
    /// How full it is and how much it holds, both in a unit of its own. Absent when it does not say
    /// or says something that cannot be; never negative.
    std::optional<std::int32_t> currentCapacity = std::nullopt;
    std::optional<std::int32_t> maxCapacity = std::nullopt;
    bool isCharging = false;
    bool isOnMains = false; ///< the machine runs on mains power

    bool operator==(const PowerSource &) const = default;
};

/// What powers the machine. Nothing blocks. Main thread only.
class PowerSources : public QObject {
    Q_OBJECT
public:
    /// The sources in the system's order; nullopt if they are unknown.
    using Reading = std::optional<QList<PowerSource>>;
    /// Called once on the main thread, never before read() has returned, unless the object is
    /// destroyed first.
    using Completion = std::function<void(const Reading &reading)>;

    using QObject::QObject;

    virtual void read(Completion completion) = 0;
};

} // namespace perchly
