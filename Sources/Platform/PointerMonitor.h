#pragma once

#include "Geometry.h"

#include <QObject>

namespace perchly {

/// Sees the pointer move anywhere on the screen, also over other programs' windows and while they
/// hold the pointer. Costs nothing while the pointer rests. Main thread only.
class PointerMonitor : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

    /// Starts announcing movements.
    virtual void start() = 0;

    /// Where the pointer is now.
    [[nodiscard]] virtual ScreenPoint position() const = 0;

    /// While on, the position is also looked at a few times a second: a jump away from where it was
    /// when last asked for is announced, which the window system does not report as movement.
    virtual void setPolling(bool on) = 0;

Q_SIGNALS:
    /// The pointer moved, with or without a button held. Several movements may be told as one.
    void moved();
};

} // namespace perchly
