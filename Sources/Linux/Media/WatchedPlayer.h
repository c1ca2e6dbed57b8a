#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QTimer>
#include <QVariantMap>

#include <chrono>
#include <functional>

namespace perchly {

/// One player on the bus. Its change signals are often partial, so each burst of them is followed
/// by one request for all properties. Nothing blocks; nothing is emitted after destruction.
class WatchedPlayer : public QObject {
    Q_OBJECT
public:
    /// Asks the player for its identity.
    WatchedPlayer(const QDBusConnection &bus, QString name);

    /// Listens to the player's changes. Call it once, after the player was identified.
    void follow();

Q_SIGNALS:
    void identified(const QString &desktopEntry);
    /// `information` holds the strings of PlayerNotifications::received().
    void changed(const QVariantMap &information);

private Q_SLOTS:
    void onPropertiesChanged();

private:
    /// Asks for all properties. Not answered if the call fails, like send().
    void ask(const QString &interface, std::chrono::milliseconds timeout,
             const std::function<void(const QVariantMap &)> &answer);
    void send(const QDBusMessage &call, std::chrono::milliseconds timeout,
              const std::function<void(const QVariant &)> &answer);
    void readState();

    QDBusConnection m_bus;
    QString m_name;
    QTimer m_burst;
};

} // namespace perchly
