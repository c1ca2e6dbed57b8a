#include "QtConnection.h"

#include <QGuiApplication>

namespace perchly {

xcb_connection_t *qtConnection() {
    const auto *native =
        qGuiApp ? qGuiApp->nativeInterface<QNativeInterface::QX11Application>() : nullptr;
    return native ? native->connection() : nullptr;
}

} // namespace perchly
