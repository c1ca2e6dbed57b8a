#pragma once

#include "PlayerNotifications.h"
#include "SessionBus.h"
#include "WatchedPlayer.h"
#include "Workers.h"

#include <QDBusServiceWatcher>
#include <QPointer>

#include <map>
#include <memory>
#include <string>

namespace perchly {

/// Players found by their bus names: all count, except the one that only mirrors others.
class BusPlayerNotifications : public PlayerNotifications {
    Q_OBJECT
public:
    explicit BusPlayerNotifications(std::shared_ptr<SessionBus> bus);

    void start() override;

    [[nodiscard]] PlayerPresence presence() const override { return m_presence; }

private:
    void follow();
    void onBusLost();
    void onNames(const QStringList &names);
    void onOwnerChanged(const QString &name, const QString &before, const QString &after);
    void setPresence(PlayerPresence presence);
    void appeared(const QString &name);
    void identify(const QPointer<WatchedPlayer> &player, const std::string &name,
                  const std::string &desktopEntry);
    void announce(const QPointer<WatchedPlayer> &player, const QString &announcement);

    std::shared_ptr<SessionBus> m_bus;
    QDBusServiceWatcher m_watcher;
    std::map<QString, std::unique_ptr<WatchedPlayer>> m_players;
    PlayerPresence m_presence = PlayerPresence::Unknown;
    Workers m_workers{1}; ///< to look up the music application
};

} // namespace perchly
