#pragma once

#include "Appearance.h"
#include "PortalSettings.h"
#include "XSettings.h"

#include <optional>

namespace perchly {

/// How the desktop should look, from the settings that it publishes on X if we run there, else from
/// the settings portal, whose GNOME keys have defaults on other desktops, too. High contrast is on
/// if any of them says so.
class DesktopAppearance : public Appearance {
    Q_OBJECT
public:
    explicit DesktopAppearance(std::shared_ptr<SessionBus> bus);

    [[nodiscard]] bool isHighContrast() const override { return m_isHighContrast; }
    [[nodiscard]] QString iconTheme() const override { return m_iconTheme; }

private:
    void update();

    [[nodiscard]] QString xText(const char *name) const;

    std::optional<XSettings> m_xSettings;
    PortalSettings m_portal;
    bool m_isHighContrast = false;
    QString m_iconTheme;
};

} // namespace perchly
