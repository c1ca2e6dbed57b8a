#pragma once

#include "Motion.h"
#include "PortalSettings.h"

namespace perchly {

/// Whether the desktop asks for reduced motion, from the settings portal: its common key, GNOME's
/// switch for animations, or a zero animation duration in KDE.
class PortalMotion : public Motion {
    Q_OBJECT
public:
    explicit PortalMotion(std::shared_ptr<SessionBus> bus);

    [[nodiscard]] bool isReduced() const override { return m_reduced; }

private:
    void update();

    PortalSettings m_settings;
    bool m_reduced = false;
};

} // namespace perchly
