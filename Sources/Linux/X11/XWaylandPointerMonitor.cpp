#include "XWaylandPointerMonitor.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>

namespace perchly {

bool isXWayland() {
    if (QGuiApplication::platformName() != QStringLiteral("xcb") ||
        !qEnvironmentVariableIsSet("WAYLAND_DISPLAY")) {
        return false;
    }
    if (QGuiApplication::primaryScreen()->name().startsWith(QStringLiteral("XWAYLAND"))) {
        return true; // before version 23
    }
    constexpr QByteArrayView name("XWAYLAND");
    XcbConnection connection;
    const auto extension = connection.reply<xcb_query_extension_reply_t>(
        xcb_query_extension(connection.get(), quint16(name.size()), name.data()));
    return extension && extension->present != 0;
}

XWaylandPointerMonitor::XWaylandPointerMonitor() {
    qGuiApp->installEventFilter(this);
}

ScreenPoint XWaylandPointerMonitor::position() const {
    return m_isOutside ? outside : X11PointerMonitor::position();
}

bool XWaylandPointerMonitor::eventFilter(QObject *watched, QEvent *event) {
    if (watched->isWindowType()) {
        if (event->type() == QEvent::Enter) {
            m_isOutside = false;
        } else if (event->type() == QEvent::Leave) {
            m_isOutside = QGuiApplication::mouseButtons() == Qt::NoButton;
        }
    }
    return X11PointerMonitor::eventFilter(watched, event);
}

} // namespace perchly
