#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QTimer>
#include <QVariantMap>

#include <chrono>
#include <functional>

namespace perchly {

/// One player on the bus. Nothing blocks; nothing is emitted after destruction.
class WatchedPlayer : public QObject {
    Q_OBJECT
public:
    /// Listens to the player's changes and asks for its identity.
    WatchedPlayer(const QDBusConnection &bus, QString name);

    /// Emits described(), too. Change signals are often partial, so each burst of them is followed
    /// by one request for all properties.
    void describeChanges() { m_describesChanges = true; }

Q_SIGNALS:
    void identified(const QString &desktopEntry);
    /// The track, the state, or whether the player can seek has changed.
    void changed();
    /// `information` holds the strings of PlayerNotifications::received().
    void described(const QVariantMap &information);

private Q_SLOTS:
    void onPropertiesChanged(const QString &interface, const QVariantMap &values,
                             const QStringList &invalidated);

private:
    void follow(const QString &owner);
    /// Asks for all properties. Not answered if the call fails, like send().
    void ask(const QString &interface, std::chrono::milliseconds timeout,
             const std::function<void(const QVariantMap &)> &answer);
    void send(const QDBusMessage &call, std::chrono::milliseconds timeout,
              const std::function<void(const QVariant &)> &answer);
    void readState();

    QDBusConnection m_bus;
    QString m_name;
    QString m_identity; ///< the name that users know it by
    QTimer m_burst;
    bool m_describesChanges = false;
};

} // namespace perchly
