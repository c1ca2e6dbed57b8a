#include "ApplicationObject.h"

#include <QDBusMessage>

namespace perchly {

ApplicationObject::ApplicationObject(std::shared_ptr<SessionBus> bus,
                                     SingleInstance::Performer performer)
    : m_bus(std::move(bus))
    , m_performer(std::move(performer)) {
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
    perform({QStringLiteral("show")});
}

void ApplicationObject::ActivateAction(const QString &action, const QVariantList &parameters,
                                       const QVariantMap &) {
    const qsizetype hyphen = action.indexOf(u'-');
    QStringList command{action.left(hyphen)};
    if (hyphen >= 0) {
        command.append(action.mid(hyphen + 1));
    }
    for (const QVariant &parameter : parameters) {
        command.append(parameter.toStringList()); // also takes a single string
    }
    perform(command);
}

void ApplicationObject::Open(const QStringList &uris, const QVariantMap &) {
    perform(QStringList{QStringLiteral("hold")} + uris);
}

void ApplicationObject::perform(const QStringList &command) {
    setDelayedReply(true);
    m_performer(command, [bus = connection(), call = message()](const QString &error) {
        if (call.isReplyRequired()) {
            bus.send(error.isEmpty() ? call.createReply()
                                     : call.createErrorReply(QDBusError::Failed, error));
        }
    });
}

} // namespace perchly
