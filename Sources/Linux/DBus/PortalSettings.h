#pragma once

#include "SessionBus.h"

#include <QDBusServiceWatcher>
#include <QMap>
#include <QVariant>

#include <memory>

class QDBusVariant;

namespace perchly {

/// A setting of the desktop: its group and key.
using PortalSetting = std::pair<QString, QString>;

/// Some settings, from the settings portal. Follows changes and restarts of the portal and the bus;
/// while nothing answers, the last answer holds. Main thread only.
class PortalSettings : public QObject {
    Q_OBJECT
public:
    PortalSettings(std::shared_ptr<SessionBus> bus, const QList<PortalSetting> &settings);

    /// Invalid if the desktop has no answer.
    [[nodiscard]] QVariant value(const PortalSetting &setting) const {
        return m_values.value(setting);
    }

Q_SIGNALS:
    void changed();

private Q_SLOTS:
    void onSettingChanged(const QString &group, const QString &key, const QDBusVariant &value);

private:
    void follow();
    void readAll();

    std::shared_ptr<SessionBus> m_bus;
    QDBusServiceWatcher m_watcher;
    QMap<PortalSetting, QVariant> m_values;
};

} // namespace perchly
