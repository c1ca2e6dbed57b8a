#pragma once

#include <QList>
#include <QObject>

#include <cstdint>
#include <functional>
#include <optional>

namespace perchly {

/// A battery or another power source, as it describes itself.
struct PowerSource {
    enum class Kind { InternalBattery, Other };

    Kind kind = Kind::Other;
    /// Current and full capacity, in a unit that differs between sources. Absent if the source
    /// gives none or an impossible one; never negative.
    std::optional<std::int32_t> currentCapacity = std::nullopt;
    std::optional<std::int32_t> maxCapacity = std::nullopt;
    bool isCharging = false;
    bool isOnMains = false; ///< the machine runs on mains power

    bool operator==(const PowerSource &) const = default;
};

/// The machine's power sources. Nothing blocks. Main thread only.
class PowerSources : public QObject {
    Q_OBJECT
public:
    /// The sources in the system's order; nullopt if unknown.
    using Reading = std::optional<QList<PowerSource>>;
    /// Called once on the main thread, never before read() has returned, unless the object is
    /// destroyed first.
    using Completion = std::function<void(const Reading &reading)>;

    using QObject::QObject;

    virtual void read(Completion completion) = 0;
};

} // namespace perchly
