#pragma once

#include "X11PointerMonitor.h"

namespace perchly {

/// Whether Qt's X server runs within a Wayland compositor. Main thread only.
[[nodiscard]] bool isXWayland();

/// Under XWayland, the X server learns nothing of a pointer that left for a window of Wayland: it
/// keeps reporting the last position, inside the panel. From leaving a window until entering one,
/// the position is `outside`.
class XWaylandPointerMonitor : public X11PointerMonitor {
    Q_OBJECT
public:
    XWaylandPointerMonitor();

    [[nodiscard]] ScreenPoint position() const override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool m_isOutside = false;
};

} // namespace perchly
