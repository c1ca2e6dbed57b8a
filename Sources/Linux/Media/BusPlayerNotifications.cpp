#include "BusPlayerNotifications.h"

#include "MusicApplication.h"
#include "Player.h"

#include <QPointer>

#include <systemd/sd-bus.h>

#include <string_view>

namespace perchly {

using namespace std::chrono_literals;

namespace {

constexpr const char *busName = "org.freedesktop.DBus";
constexpr const char *busPath = "/org/freedesktop/DBus";
constexpr const char *playerPath = "/org/mpris/MediaPlayer2";
constexpr const char *properties = "org.freedesktop.DBus.Properties";
constexpr std::size_t mostPlayers = 64;
constexpr auto patience = 30s; // with players that answer when they have started

bool isPlayer(std::string_view name) {
    return name.starts_with("org.mpris.MediaPlayer2.") &&
           name != "org.mpris.MediaPlayer2.playerctld";
}

QString stateName(Playback playback) {
    switch (playback) {
    case Playback::Playing:
        return QStringLiteral("Playing");
    case Playback::Paused:
        return QStringLiteral("Paused");
    case Playback::Stopped:
        break;
    }
    return QStringLiteral("Stopped");
}

void insertText(QVariantMap &map, const QString &key, const std::string &text) {
    if (!text.empty()) {
        map.insert(key, QString::fromStdString(text));
    }
}

} // namespace

BusPlayerNotifications::BusPlayerNotifications(QObject *parent)
    : PlayerNotifications(parent) {
    m_retry.setSingleShot(true);
    connect(&m_retry, &QTimer::timeout, this, &BusPlayerNotifications::connectToBus);
    m_pool.setMaxThreadCount(1);
    m_pool.setExpiryTimeout(1000);
}

BusPlayerNotifications::~BusPlayerNotifications() = default;

void BusPlayerNotifications::start() {
    connectToBus();
}

void BusPlayerNotifications::connectToBus() {
    m_players.clear(); // what they ask for would come from the connection that was there before
    m_bus = std::make_unique<BusLoop>();
    if (!m_bus->open()) {
        onBusLost();
        return;
    }
    connect(m_bus.get(), &BusLoop::lost, this, &BusPlayerNotifications::onBusLost,
            Qt::QueuedConnection);
    m_owners = m_bus->match("type='signal',sender='org.freedesktop.DBus',"
                            "path='/org/freedesktop/DBus',interface='org.freedesktop.DBus',"
                            "member='NameOwnerChanged',arg0namespace='org.mpris.MediaPlayer2'",
                            [this](sd_bus_message *message) { onOwnerChanged(message); });
    // An answer that does not come leaves nothing known: then all begins anew. At a busy login it
    // may just have come too late.
    m_retry.start(m_unanswered++ < 3 ? 3s : 30s);
    m_names = m_bus->call(busName, busPath, busName, "ListNames", nullptr,
                          [this](sd_bus_message *message) { onNames(message); });
}

void BusPlayerNotifications::onBusLost() {
    m_players.clear();
    m_names.reset();
    m_owners.reset();
    m_bus.reset();
    m_retry.start(30s);
    setPresence(PlayerPresence::Unknown);
}

void BusPlayerNotifications::onNames(sd_bus_message *message) {
    if (sd_bus_message_enter_container(message, SD_BUS_TYPE_ARRAY, "s") < 0) {
        return;
    }
    m_retry.stop();
    m_unanswered = 0;
    const char *name = nullptr;
    while (sd_bus_message_read_basic(message, SD_BUS_TYPE_STRING, &name) > 0) {
        if (isPlayer(name) && !m_players.contains(name)) {
            appeared(name);
        }
    }
    if (m_players.empty()) {
        setPresence(PlayerPresence::None);
    }
}

void BusPlayerNotifications::onOwnerChanged(sd_bus_message *message) {
    const char *name = nullptr;
    const char *before = nullptr;
    const char *after = nullptr;
    if (sd_bus_message_read(message, "sss", &name, &before, &after) < 0 || !isPlayer(name)) {
        return;
    }
    m_players.erase(name);
    if (after[0] != '\0') {
        appeared(name);
    } else if (m_presence == PlayerPresence::Some && m_players.empty()) {
        setPresence(PlayerPresence::None);
    }
}

void BusPlayerNotifications::setPresence(PlayerPresence presence) {
    if (m_presence != presence) {
        m_presence = presence;
        Q_EMIT presenceChanged();
    }
}

void BusPlayerNotifications::appeared(const std::string &name) {
    setPresence(PlayerPresence::Some);
    if (m_players.size() >= mostPlayers) {
        return;
    }
    const auto onFacts = [this, name](sd_bus_message *reply) {
        Player facts;
        readRootProperties(reply, facts);
        const char *connection = sd_bus_message_get_sender(reply);
        WatchedPlayer &player = m_players[name];
        player.connection = connection != nullptr ? connection : "";
        player.desktopEntry = facts.desktopEntry;
        identify(name);
    };
    m_players[name].question = m_bus->call(name.c_str(), playerPath, properties, "GetAll",
                                           "org.mpris.MediaPlayer2", onFacts, patience);
}

void BusPlayerNotifications::identify(const std::string &name) {
    if (isPlayerOf("spotify", name, m_players[name].desktopEntry)) {
        watch(name, Role::Spotify);
        return;
    }
    m_pool.start([this, name] {
        const auto music = findMusicApplication();
        const std::string identifier = music ? music->identifier : std::string();
        QMetaObject::invokeMethod(
            this,
            [this, name, identifier] {
                const auto found = m_players.find(name);
                if (found != m_players.end() &&
                    isPlayerOf(identifier, name, found->second.desktopEntry)) {
                    watch(name, Role::Music);
                }
            },
            Qt::QueuedConnection);
    });
}

void BusPlayerNotifications::watch(const std::string &name, Role role) {
    WatchedPlayer &player = m_players[name];
    player.role = role;
    player.flurry = std::make_unique<QTimer>();
    player.flurry->setSingleShot(true);
    player.flurry->setInterval(50ms);
    connect(player.flurry.get(), &QTimer::timeout, this, [this, name] { readState(name); });
    const std::string rule = "type='signal',sender='" + player.connection +
                             "',path='/org/mpris/MediaPlayer2',"
                             "interface='org.freedesktop.DBus.Properties',"
                             "member='PropertiesChanged',arg0='org.mpris.MediaPlayer2.Player'";
    player.changes = m_bus->match(rule.c_str(), [timer = player.flurry.get()](sd_bus_message *) {
        if (!timer->isActive()) {
            timer->start();
        }
    });
}

void BusPlayerNotifications::readState(const std::string &name) {
    const auto found = m_players.find(name);
    if (found != m_players.end()) {
        found->second.question = m_bus->call(
            name.c_str(), playerPath, properties, "GetAll", "org.mpris.MediaPlayer2.Player",
            [this, role = found->second.role](sd_bus_message *reply) { deliver(role, reply); });
    }
}

void BusPlayerNotifications::deliver(Role role, sd_bus_message *reply) {
    Player player;
    readPlayerProperties(reply, player);
    QVariantMap information{{QStringLiteral("Player State"), stateName(player.playback)}};
    insertText(information, QStringLiteral("Name"), player.title);
    insertText(information, QStringLiteral("Artist"), player.artist);
    Q_EMIT received(role == Role::Spotify
                        ? QStringLiteral("com.spotify.client.PlaybackStateChanged")
                        : QStringLiteral("com.apple.Music.playerInfo"),
                    information);
}

} // namespace perchly
