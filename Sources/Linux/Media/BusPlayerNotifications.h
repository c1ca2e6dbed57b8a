#pragma once

#include "BusLoop.h"
#include "PlayerNotifications.h"

#include <QThreadPool>
#include <QTimer>

#include <map>
#include <memory>
#include <string>

namespace perchly {

/// Players as the bus knows them. Every name in their family is counted, apart from the one that
/// only repeats others; the two whose changes are passed on are watched from when they appear.
/// Their change signals are often partial, so that each flurry of them is followed by one question
/// for everything.
class BusPlayerNotifications : public PlayerNotifications {
    Q_OBJECT
public:
    explicit BusPlayerNotifications(QObject *parent = nullptr);
    ~BusPlayerNotifications() override;

    /// Connects, and tries again every half minute while there is no bus.
    void start() override;

    [[nodiscard]] PlayerPresence presence() const override { return m_presence; }

private:
    enum class Role { None, Spotify, Music };

    struct WatchedPlayer {
        std::string connection; ///< the name by which the bus marks what it sends
        std::string desktopEntry;
        Role role = Role::None;
        BusSlot question;
        BusSlot changes;
        std::unique_ptr<QTimer> flurry;
    };

    void connectToBus();
    void setPresence(PlayerPresence presence);
    void onBusLost();
    void onNames(sd_bus_message *message);
    void onOwnerChanged(sd_bus_message *message);
    void appeared(const std::string &name);
    void identify(const std::string &name);
    void watch(const std::string &name, Role role);
    void readState(const std::string &name);
    void deliver(Role role, sd_bus_message *reply);

    std::unique_ptr<BusLoop> m_bus;
    BusSlot m_names;
    BusSlot m_owners;
    std::map<std::string, WatchedPlayer> m_players;
    PlayerPresence m_presence = PlayerPresence::Unknown;
    QTimer m_retry;
    int m_unanswered = 0; ///< times that the bus was asked who is there, without an answer
    QThreadPool m_pool;   ///< looks up the music application; destroyed first
};

} // namespace perchly
