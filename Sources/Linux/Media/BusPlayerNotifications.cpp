#include "BusPlayerNotifications.h"

#include "MusicApplication.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

namespace perchly {

namespace {

bool isPlayer(const QString &name) {
    return name.startsWith(QLatin1StringView("org.mpris.MediaPlayer2.")) &&
           name != QLatin1StringView("org.mpris.MediaPlayer2.playerctld");
}

} // namespace

BusPlayerNotifications::BusPlayerNotifications(std::shared_ptr<SessionBus> bus)
    : m_bus(std::move(bus)) {
    m_watcher.setWatchMode(QDBusServiceWatcher::WatchForOwnerChange);
    m_watcher.addWatchedService(QStringLiteral("org.mpris.MediaPlayer2*")); // and all below
    connect(&m_watcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
            &BusPlayerNotifications::onOwnerChanged);
    connect(m_bus.get(), &SessionBus::lost, this, &BusPlayerNotifications::onBusLost);
}

void BusPlayerNotifications::start() {
    connect(m_bus.get(), &SessionBus::connected, this, &BusPlayerNotifications::follow);
    if (m_bus->isConnected()) {
        follow();
    }
}

void BusPlayerNotifications::follow() {
    const QDBusConnection bus = m_bus->connection();
    m_watcher.setConnection(bus);
    const QString busName = QStringLiteral("org.freedesktop.DBus");
    const auto call = QDBusMessage::createMethodCall(
        busName, QStringLiteral("/org/freedesktop/DBus"), busName, QStringLiteral("ListNames"));
    auto *pending = new QDBusPendingCallWatcher(bus.asyncCall(call), this);
    connect(pending, &QDBusPendingCallWatcher::finished, this, [this, pending] {
        pending->deleteLater();
        const QDBusPendingReply<QStringList> reply = *pending;
        if (!reply.isError()) {
            onNames(reply.value());
        }
    });
}

void BusPlayerNotifications::onBusLost() {
    m_players.clear();
    setPresence(PlayerPresence::Unknown);
}

void BusPlayerNotifications::onNames(const QStringList &names) {
    for (const QString &name : names) {
        if (isPlayer(name) && !m_players.contains(name)) {
            appeared(name);
        }
    }
    if (m_players.empty()) {
        setPresence(PlayerPresence::None);
    }
}

void BusPlayerNotifications::onOwnerChanged(const QString &name, const QString &,
                                            const QString &after) {
    if (!isPlayer(name)) {
        return;
    }
    m_players.erase(name);
    if (!after.isEmpty()) {
        appeared(name);
    } else if (!m_players.empty()) {
        Q_EMIT changed();
    } else if (m_presence == PlayerPresence::Some) {
        setPresence(PlayerPresence::None);
    }
}

void BusPlayerNotifications::setPresence(PlayerPresence presence) {
    if (m_presence != presence) {
        m_presence = presence;
        Q_EMIT presenceChanged();
    }
}

void BusPlayerNotifications::appeared(const QString &name) {
    auto &player = m_players[name];
    player = std::make_unique<WatchedPlayer>(m_bus->connection(), name);
    connect(player.get(), &WatchedPlayer::identified, this,
            [this, name, guard = QPointer(player.get())](const QString &desktopEntry) {
                Q_EMIT changed();
                identify(guard, name.toStdString(), desktopEntry.toStdString());
            });
    connect(player.get(), &WatchedPlayer::changed, this, &PlayerNotifications::changed);
    setPresence(PlayerPresence::Some);
}

void BusPlayerNotifications::identify(const QPointer<WatchedPlayer> &player,
                                      const std::string &name, const std::string &desktopEntry) {
    if (isPlayerOf("spotify", name, desktopEntry)) {
        announce(player, QStringLiteral("com.spotify.client.PlaybackStateChanged"));
        return;
    }
    m_workers.run(findMusicApplication, [this, player, name, desktopEntry](const auto &music) {
        if (music && isPlayerOf(music->identifier, name, desktopEntry)) {
            announce(player, QStringLiteral("com.apple.Music.playerInfo"));
        }
    });
}

void BusPlayerNotifications::announce(const QPointer<WatchedPlayer> &player,
                                      const QString &announcement) {
    if (player) {
        connect(player, &WatchedPlayer::described, this,
                [this, announcement](const QVariantMap &information) {
                    Q_EMIT received(announcement, information);
                });
        player->describeChanges();
    }
}

} // namespace perchly
