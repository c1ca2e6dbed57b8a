#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QTimer>
#include <QVariantMap>

#include <chrono>
#include <functional>

namespace perchly {

/// One player on the bus. Its change signals are often partial, so each burst of them is followed
/// by one request for all properties. Nothing blocks; no signal comes after its destruction.
class WatchedPlayer : public QObject {
    Q_OBJECT
public:
    /// Asks the player who it is.
    WatchedPlayer(const QDBusConnection &bus, QString name);

    /// Listens to the player's changes. Call it once, after it was identified.
    void follow();

Q_SIGNALS:
    void identified(const QString &desktopEntry);
    /// With the strings that PlayerNotifications gives.
    void changed(const QVariantMap &information);

private Q_SLOTS:
    void onPropertiesChanged();

private:
    using Answer = std::function<void(const QString &owner, const QVariantMap &properties)>;

    void ask(const QString &interface, std::chrono::milliseconds timeout, const Answer &answer);
    void readState();

    QDBusConnection m_bus;
    QString m_name;
    QString m_owner; ///< the unique name from which its signals come
    QTimer m_burst;
};

} // namespace perchly
