#pragma once

#include "Geometry.h"

#include <QObject>

namespace perchly {

/// Sees the pointer move anywhere on the screen, also while other programs hold it. Costs nothing
/// while the pointer rests. Main thread only.
class PointerMonitor : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

    /// Starts announcing movements.
    virtual void start() = 0;

    /// Where the pointer is now. Asks the window system.
    [[nodiscard]] virtual ScreenPoint position() const = 0;

    enum class Watch {
        Nothing,
        Movements,
        /// Also jumps made by other programs, which the window system does not report as movement:
        /// polls the position a few times a second.
        Jumps
    };
    /// What to announce; movements after start().
    virtual void watch(Watch watch) = 0;

Q_SIGNALS:
    /// The pointer is there now, with or without a button held. Several movements may be announced
    /// as one.
    void moved(ScreenPoint position);
};

} // namespace perchly
