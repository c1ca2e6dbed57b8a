#pragma once

#include "Motion.h"

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QMap>

class QDBusVariant;

namespace perchly {

/// The desktop's wish for less motion, from the settings portal: its own key where it has it, what
/// the person switched off in GNOME, or set to nothing in KDE's animation speed. It follows changes
/// and a restart of the portal; while nothing answers, what was last known holds.
class PortalMotion : public Motion {
    Q_OBJECT
public:
    /// Asks without waiting. A bus that is not connected never says anything.
    explicit PortalMotion(const QDBusConnection &bus, QObject *parent = nullptr);

    [[nodiscard]] bool isReduced() const override { return m_reduced; }

private Q_SLOTS:
    void onSettingChanged(const QString &group, const QString &key, const QDBusVariant &value);

private:
    void readAll();

    QDBusConnection m_bus;
    QDBusServiceWatcher m_watcher;
    QMap<QString, bool> m_reducedBy; ///< what each setting says, by its group
    bool m_reduced = false;
};

} // namespace perchly
