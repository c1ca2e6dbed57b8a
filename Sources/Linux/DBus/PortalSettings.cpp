#include "PortalSettings.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>

namespace perchly {

namespace {

const QString portalService = QStringLiteral("org.freedesktop.portal.Desktop");
const QString path = QStringLiteral("/org/freedesktop/portal/desktop");
const QString interface = QStringLiteral("org.freedesktop.portal.Settings");

} // namespace

PortalSettings::PortalSettings(std::shared_ptr<SessionBus> bus,
                               const QList<PortalSetting> &settings)
    : m_bus(std::move(bus)) {
    for (const PortalSetting &setting : settings) {
        m_values.insert(setting, {});
    }
    m_watcher.addWatchedService(portalService);
    connect(&m_watcher, &QDBusServiceWatcher::serviceRegistered, this, &PortalSettings::readAll);
    connect(m_bus.get(), &SessionBus::connected, this, &PortalSettings::follow);
    follow();
}

void PortalSettings::follow() {
    QDBusConnection bus = m_bus->connection();
    if (bus.isConnected()) {
        qRegisterMetaType<QDBusVariant>(); // otherwise QtDBus does not find the slot
        bus.connect(portalService, path, interface, QStringLiteral("SettingChanged"), this,
                    SLOT(onSettingChanged(QString, QString, QDBusVariant)));
        m_watcher.setConnection(bus);
        readAll();
    }
}

void PortalSettings::readAll() {
    for (const auto &[group, key] : m_values.keys()) {
        QDBusMessage call =
            QDBusMessage::createMethodCall(portalService, path, interface, QStringLiteral("Read"));
        call << group << key;
        auto *pending = new QDBusPendingCallWatcher(m_bus->connection().asyncCall(call), this);
        connect(pending, &QDBusPendingCallWatcher::finished, this,
                [this, group = group, key = key, pending] {
                    pending->deleteLater();
                    const QDBusPendingReply<QDBusVariant> reply = *pending;
                    if (!reply.isError()) {
                        onSettingChanged(group, key, reply.value());
                    }
                });
    }
}

void PortalSettings::onSettingChanged(const QString &group, const QString &key,
                                      const QDBusVariant &value) {
    const auto found = m_values.find({group, key});
    if (found == m_values.end()) {
        return;
    }
    QVariant content = value.variant();
    while (content.metaType() == QMetaType::fromType<QDBusVariant>()) {
        content = content.value<QDBusVariant>().variant(); // Read wraps the value twice
    }
    *found = content;
    Q_EMIT changed();
}

} // namespace perchly
