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
    /// Nothing when the value is of a kind that the setting does not have.
    std::optional<bool> (*reduces)(const QVariant &value);
};

std::optional<bool> whenOne(const QVariant &value) {
    bool isNumber = false;
    const uint number = value.toUInt(&isNumber);
    return isNumber ? std::optional(number == 1) : std::nullopt;
}

std::optional<bool> whenFalse(const QVariant &value) {
    return value.typeId() == QMetaType::Bool ? std::optional(!value.toBool()) : std::nullopt;
}

std::optional<bool> whenZero(const QVariant &value) {
    bool isNumber = false;
    const double number = value.toDouble(&isNumber); // KDE sends its settings as strings
    return isNumber ? std::optional(number == 0) : std::nullopt;
}

constexpr std::array settings{Setting{QLatin1StringView("org.freedesktop.appearance"),
                                      QLatin1StringView("reduced-motion"), whenOne},
                              Setting{QLatin1StringView("org.gnome.desktop.interface"),
                                      QLatin1StringView("enable-animations"), whenFalse},
                              Setting{QLatin1StringView("org.kde.kdeglobals.KDE"),
                                      QLatin1StringView("AnimationDurationFactor"), whenZero}};

} // namespace

PortalMotion::PortalMotion(const QDBusConnection &bus, QObject *parent)
    : Motion(parent)
    , m_bus(bus) {
    if (!m_bus.isConnected()) {
        return;
    }
    m_bus.connect(portalService, path, interface, QStringLiteral("SettingChanged"), this,
                  SLOT(onSettingChanged(QString, QString, QDBusVariant)));
    m_watcher.setConnection(m_bus);
    m_watcher.addWatchedService(portalService);
    connect(&m_watcher, &QDBusServiceWatcher::serviceRegistered, this, &PortalMotion::readAll);
    readAll();
}

void PortalMotion::readAll() {
    for (const Setting &setting : settings) {
        QDBusMessage call =
            QDBusMessage::createMethodCall(portalService, path, interface, QStringLiteral("Read"));
        call << QString(setting.group) << QString(setting.key);
        auto *pending = new QDBusPendingCallWatcher(m_bus.asyncCall(call), this);
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
        content = content.value<QDBusVariant>().variant(); // Read wraps it twice
    }
    const auto reduces = setting->reduces(content);
    if (!reduces) {
        return;
    }
    m_reducedBy.insert(group, *reduces);
    const bool reduced = std::ranges::any_of(m_reducedBy, std::identity());
    if (std::exchange(m_reduced, reduced) != reduced) {
        Q_EMIT changed();
    }
}

} // namespace perchly
