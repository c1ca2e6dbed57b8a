#include "PortalMotion.h"

#include <algorithm>
#include <utility>

namespace perchly {

namespace {

/// The settings and the values that request reduced motion.
const QMap<PortalSetting, double> reducing{
    {{QStringLiteral("org.freedesktop.appearance"), QStringLiteral("reduced-motion")}, 1},
    {{QStringLiteral("org.gnome.desktop.interface"), QStringLiteral("enable-animations")}, 0},
    {{QStringLiteral("org.kde.kdeglobals.KDE"), QStringLiteral("AnimationDurationFactor")}, 0}};

} // namespace

PortalMotion::PortalMotion(std::shared_ptr<SessionBus> bus)
    : m_settings(std::move(bus), reducing.keys()) {
    connect(&m_settings, &PortalSettings::changed, this, &PortalMotion::update);
}

void PortalMotion::update() {
    const bool reduced = std::ranges::any_of(reducing.keys(), [this](const PortalSetting &setting) {
        bool isNumber = false;
        // also converts a bool, or KDE's strings
        const double number = m_settings.value(setting).toDouble(&isNumber);
        return isNumber && number == reducing.value(setting);
    });
    if (std::exchange(m_reduced, reduced) != reduced) {
        Q_EMIT changed();
    }
}

} // namespace perchly
