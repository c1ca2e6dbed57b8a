#pragma once

#include "Geometry.h"

#include <QObject>

namespace perchly {

/// Reports pointer movements anywhere on the screen, even while other programs grab the pointer.
/// Costs nothing while the pointer rests. Main thread only.
class PointerMonitor : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

    /// A point outside every display.
    static constexpr ScreenPoint outside{-1e6, -1e6};

    /// Starts announcing movements.
    virtual void start() = 0;

    /// The pointer's current position, or `outside` where the window system reports it over our own
    /// windows only. Asks the window system.
    [[nodiscard]] virtual ScreenPoint position() const = 0;

    /// Whether a mouse button is held. Asks the window system.
    [[nodiscard]] virtual bool isButtonHeld() const = 0;

    enum class Watch {
        Nothing,
        Movements,
        /// Also reports where a button is released, as a movement.
        Releases,
        /// Also reports jumps made by other programs, which the window system does not report as
        /// movement: polls the position a few times a second.
        Jumps
    };
    /// Sets which events to report; movements after start().
    virtual void watch(Watch watch) = 0;

Q_SIGNALS:
    /// The pointer moved here, with or without a button held. Several movements may be reported as
    /// one.
    void moved(ScreenPoint position);
};

} // namespace perchly
