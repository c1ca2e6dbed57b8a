#include "PortalMotion.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>

#include <algorithm>
#include <array>

namespace perchly {

namespace {

const QString portalService = QStringLiteral("org.freedesktop.portal.Desktop");
const QString path = QStringLiteral("/org/freedesktop/portal/desktop");
const QString interface = QStringLiteral("org.freedesktop.portal.Settings");

struct Setting {
    QLatin1StringView group;
    QLatin1StringView key;
    double reduced; ///< the value that requests reduced motion
};

constexpr std::array settings{Setting{QLatin1StringView("org.freedesktop.appearance"),
                                      QLatin1StringView("reduced-motion"), 1},
                              Setting{QLatin1StringView("org.gnome.desktop.interface"),
                                      QLatin1StringView("enable-animations"), 0},
                              Setting{QLatin1StringView("org.kde.kdeglobals.KDE"),
                                      QLatin1StringView("AnimationDurationFactor"), 0}};

} // namespace

PortalMotion::PortalMotion(std::shared_ptr<SessionBus> bus)
    : m_bus(std::move(bus)) {
    m_watcher.addWatchedService(portalService);
    connect(&m_watcher, &QDBusServiceWatcher::serviceRegistered, this, &PortalMotion::readAll);
    connect(m_bus.get(), &SessionBus::connected, this, &PortalMotion::follow);
    follow();
}

void PortalMotion::follow() {
    QDBusConnection bus = m_bus->connection();
    if (bus.isConnected()) {
        qRegisterMetaType<QDBusVariant>(); // otherwise QtDBus does not find the slot
        bus.connect(portalService, path, interface, QStringLiteral("SettingChanged"), this,
                    SLOT(onSettingChanged(QString, QString, QDBusVariant)));
        m_watcher.setConnection(bus);
        readAll();
    }
}

void PortalMotion::readAll() {
    for (const Setting &setting : settings) {
        QDBusMessage call =
            QDBusMessage::createMethodCall(portalService, path, interface, QStringLiteral("Read"));
        call << QString(setting.group) << QString(setting.key);
        auto *pending = new QDBusPendingCallWatcher(m_bus->connection().asyncCall(call), this);
        connect(pending, &QDBusPendingCallWatcher::finished, this, [this, setting, pending] {
            pending->deleteLater();
            const QDBusPendingReply<QDBusVariant> reply = *pending;
            if (!reply.isError()) {
                onSettingChanged(setting.group, setting.key, reply.value());
            }
        });
    }
}

void PortalMotion::onSettingChanged(const QString &group, const QString &key,
                                    const QDBusVariant &value) {
    const auto setting = std::ranges::find_if(settings, [&](const Setting &candidate) {
        return candidate.group == group && candidate.key == key;
    });
    if (setting == settings.end()) {
        return;
    }
    QVariant content = value.variant();
    while (content.metaType() == QMetaType::fromType<QDBusVariant>()) {
        content = content.value<QDBusVariant>().variant(); // Read wraps the value twice
    }
    bool isNumber = false;
    const double number = content.toDouble(&isNumber); // also converts a bool, or KDE's strings
    if (!isNumber) {
        return;
    }
    m_reducedBy.insert(group, number == setting->reduced);
    const bool reduced = std::ranges::any_of(m_reducedBy, std::identity());
    if (std::exchange(m_reduced, reduced) != reduced) {
        Q_EMIT changed();
    }
}

} // namespace perchly
