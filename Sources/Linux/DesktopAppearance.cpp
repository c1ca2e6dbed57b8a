#include "DesktopAppearance.h"

#include <QGuiApplication>

namespace perchly {

namespace {

const PortalSetting contrast{QStringLiteral("org.freedesktop.appearance"),
                             QStringLiteral("contrast")};
const PortalSetting gnomeContrast{QStringLiteral("org.gnome.desktop.a11y.interface"),
                                  QStringLiteral("high-contrast")};
const PortalSetting gnomeIcons{QStringLiteral("org.gnome.desktop.interface"),
                               QStringLiteral("icon-theme")};
const PortalSetting kdeIcons{QStringLiteral("org.kde.kdeglobals.Icons"), QStringLiteral("Theme")};

} // namespace

DesktopAppearance::DesktopAppearance(std::shared_ptr<SessionBus> bus)
    : m_portal(std::move(bus), {contrast, gnomeContrast, gnomeIcons, kdeIcons}) {
    if (QGuiApplication::platformName() == QStringLiteral("xcb")) { // do not start XWayland
        m_xSettings.emplace();
        connect(&*m_xSettings, &XSettings::changed, this, &DesktopAppearance::update);
    }
    connect(&m_portal, &PortalSettings::changed, this, &DesktopAppearance::update);
    update();
}

QString DesktopAppearance::xText(const char *name) const {
    return m_xSettings ? m_xSettings->text(name) : QString();
}

void DesktopAppearance::update() {
    // The themes of GNOME, Xfce and MATE; those of Cinnamon have the same names.
    const QString theme = xText("Net/ThemeName");
    const bool isHighContrast = theme.startsWith(QStringLiteral("HighContrast")) ||
                                theme.startsWith(QStringLiteral("ContrastHigh")) ||
                                m_portal.value(contrast).toInt() == 1 ||
                                m_portal.value(gnomeContrast).toBool();
    QString icons = xText("Net/IconThemeName");
    for (const PortalSetting &setting : {kdeIcons, gnomeIcons}) {
        if (icons.isEmpty()) {
            icons = m_portal.value(setting).toString();
        }
    }
    if (isHighContrast != m_isHighContrast || icons != m_iconTheme) {
        m_isHighContrast = isHighContrast;
        m_iconTheme = icons;
        Q_EMIT changed();
    }
}

} // namespace perchly
