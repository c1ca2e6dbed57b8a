#include "ApplicationObject.h"

#include <QDBusMessage>

namespace perchly {

ApplicationObject::ApplicationObject(std::shared_ptr<SessionBus> bus)
    : m_bus(std::move(bus)) {
    connect(m_bus.get(), &SessionBus::connected, this, &ApplicationObject::offer);
    offer();
}

void ApplicationObject::offer() {
    QDBusConnection bus = m_bus->connection();
    // Register the object first: a call may follow the name at once.
    bus.registerObject(QStringLiteral("/org/perchly/Perchly"), this,
                       QDBusConnection::ExportAllSlots);
    // QtDBus's own registerService() waits for an answer.
    const QString busName = QStringLiteral("org.freedesktop.DBus");
    bus.send(QDBusMessage::createMethodCall(busName, QStringLiteral("/org/freedesktop/DBus"),
                                            busName, QStringLiteral("RequestName"))
             << QStringLiteral("org.perchly.Perchly") << 0U);
}

void ApplicationObject::Activate(const QVariantMap &) {
    Q_EMIT requested(QStringLiteral("show"));
}

void ApplicationObject::ActivateAction(const QString &action, const QVariantList &,
                                       const QVariantMap &) {
    Q_EMIT requested(action);
}

void ApplicationObject::Open(const QStringList &, const QVariantMap &) {}

} // namespace perchly
