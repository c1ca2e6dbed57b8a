#include "WaylandPointerMonitor.h"

#include "WaylandPanelHost.h"

namespace perchly {

void WaylandPointerMonitor::start() {
    m_watch = Watch::Movements;
    connect(&m_host, &WaylandPanelHost::pointerMoved, this, [this] {
        if (m_watch != Watch::Nothing) {
            Q_EMIT moved(position());
        }
    });
}

ScreenPoint WaylandPointerMonitor::position() const {
    return m_host.pointer().value_or(outside);
}

bool WaylandPointerMonitor::isButtonHeld() const {
    return m_host.isDraggedOver() || m_host.isPressed();
}

} // namespace perchly
