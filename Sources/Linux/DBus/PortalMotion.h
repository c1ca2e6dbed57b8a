#pragma once

#include "Motion.h"
#include "SessionBus.h"

#include <QDBusServiceWatcher>
#include <QMap>

#include <memory>

class QDBusVariant;

namespace perchly {

/// Whether the desktop asks for reduced motion, from the settings portal: its common key, GNOME's
/// switch for animations, or a zero animation duration in KDE. Follows changes and restarts of the
/// portal and the bus; while nothing answers, the last answer holds.
class PortalMotion : public Motion {
    Q_OBJECT
public:
    explicit PortalMotion(std::shared_ptr<SessionBus> bus);

    [[nodiscard]] bool isReduced() const override { return m_reduced; }

private Q_SLOTS:
    void onSettingChanged(const QString &group, const QString &key, const QDBusVariant &value);

private:
    void follow();
    void readAll();

    std::shared_ptr<SessionBus> m_bus;
    QDBusServiceWatcher m_watcher;
    QMap<QString, bool> m_reducedBy; ///< of each setting, by its group
    bool m_reduced = false;
};

} // namespace perchly
