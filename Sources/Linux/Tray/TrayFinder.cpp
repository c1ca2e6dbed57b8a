#include "TrayFinder.h"

#include "QtConnection.h"
#include "XcbPointer.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QGuiApplication>

#include <cstdlib>
#include <utility>
#include <xcb/xcb.h>

namespace perchly {

using namespace std::chrono_literals;

namespace {

const QString service = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString path = QStringLiteral("/StatusNotifierWatcher");

xcb_atom_t atom(const QByteArray &name) {
    const auto cookie = xcb_intern_atom(qtConnection(), 0, uint16_t(name.size()), name.constData());
    const XcbPointer<xcb_intern_atom_reply_t> reply(
        xcb_intern_atom_reply(qtConnection(), cookie, nullptr));
    return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
}

int screenNumber() {
    char *host = nullptr;
    int number = 0;
    int screen = 0;
    xcb_parse_display(nullptr, &host, &number, &screen);
    std::free(host);
    return screen;
}

} // namespace

TrayFinder::TrayFinder(const QDBusConnection &bus, QObject *parent)
    : QObject(parent)
    , m_bus(bus) {
    m_selectionDelay.setSingleShot(true);
    m_selectionDelay.setInterval(1s);
    connect(&m_selectionDelay, &QTimer::timeout, this, [this] {
        if (hasSelection()) {
            finish();
        }
    });
    if (m_bus.isConnected()) {
        watchService();
    }
    if (qtConnection() != nullptr) {
        watchSelection();
    }
}

TrayFinder::~TrayFinder() = default;

void TrayFinder::watchService() {
    m_watcher.setConnection(m_bus);
    m_watcher.addWatchedService(service);
    connect(&m_watcher, &QDBusServiceWatcher::serviceRegistered, this, &TrayFinder::askService);
    m_bus.connect(service, path, service, QStringLiteral("StatusNotifierHostRegistered"), this,
                  SLOT(askService()));
    askService();
}

void TrayFinder::askService() {
    // Qt looks for a panel only once, so wait until the service has one.
    QDBusMessage call = QDBusMessage::createMethodCall(
        service, path, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    call << service << QStringLiteral("IsStatusNotifierHostRegistered");
    call.setAutoStartService(false);
    auto *pending = new QDBusPendingCallWatcher(m_bus.asyncCall(call), this);
    connect(pending, &QDBusPendingCallWatcher::finished, this, [this, pending] {
        pending->deleteLater();
        const QDBusPendingReply<QDBusVariant> reply = *pending;
        if (!reply.isError() && reply.value().variant().toBool()) {
            finish();
        }
    });
}

void TrayFinder::watchSelection() {
    m_managerAtom = atom(QByteArrayLiteral("MANAGER"));
    m_selectionAtom = atom("_NET_SYSTEM_TRAY_S" + QByteArray::number(screenNumber()));
    qGuiApp->installNativeEventFilter(this);
    if (hasSelection()) {
        m_selectionDelay.start();
    }
}

bool TrayFinder::hasSelection() const {
    const auto cookie = xcb_get_selection_owner(qtConnection(), m_selectionAtom);
    const XcbPointer<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(qtConnection(), cookie, nullptr));
    return reply && reply->owner != XCB_WINDOW_NONE;
}

bool TrayFinder::nativeEventFilter(const QByteArray &type, void *message, qintptr *) {
    const auto *event = static_cast<const xcb_generic_event_t *>(message);
    if (type == "xcb_generic_event_t" && (event->response_type & 0x7f) == XCB_CLIENT_MESSAGE) {
        const auto *client = static_cast<const xcb_client_message_event_t *>(message);
        if (client->type == m_managerAtom && client->data.data32[1] == m_selectionAtom) {
            m_selectionDelay.start();
        }
    }
    return false;
}

void TrayFinder::finish() {
    if (!std::exchange(m_found, true)) {
        m_selectionDelay.stop();
        Q_EMIT found();
    }
}

} // namespace perchly
