#include "MediaTracking.h"

#include "MusicPlayer.h"
#include "PlayerNotifications.h"
#include "ShelfModel.h"

namespace perchly {

using namespace std::chrono_literals;

namespace {

QString textOr(const QVariant &value, const QString &otherwise) {
    return value.typeId() == QMetaType::QString ? textToShow(value.toString()) : otherwise;
}

} // namespace

MediaTracking::MediaTracking(ShelfModel &model, Clock &clock, ScriptHost &scripts,
                             PlayerNotifications &notifications, MusicPlayer &musicPlayer)
    : m_model(model)
    , m_clock(clock)
    , m_players(notifications)
    , m_musicPlayer(musicPlayer)
    , m_reader(scripts, notifications, clock)
    , m_control(model, m_reader, clock) {
    connect(&model, &ShelfModel::controlRequested, this, &MediaTracking::control);
    connect(&model, &ShelfModel::musicRequested, this, &MediaTracking::openMusic);
    connect(&notifications, &PlayerNotifications::received, this, &MediaTracking::onNotification);
    connect(&notifications, &PlayerNotifications::presenceChanged, this, [this] {
        if (m_isMonitoring && !m_poll) {
            poll();
        }
    });
}

void MediaTracking::startMediaMonitoring() {
    m_isMonitoring = true;
    poll();
}

void MediaTracking::stopMediaMonitoring() {
    m_isMonitoring = false;
    m_poll.reset();
}

void MediaTracking::poll() {
    m_poll = m_reader.read([this](const MediaReading &reading) {
        if (reading.succeeded && !m_model.controlling()) {
            applyMedia(m_model, reading.activity);
        }
        rest();
    });
}

/// Without a player there is nothing to read until one starts. If the player left during a reading,
/// it is still shown, so read once more.
void MediaTracking::rest() {
    m_poll.reset();
    const bool isLeft = m_players.presence() == PlayerPresence::None && m_model.media().isSystem;
    if (m_players.presence() == PlayerPresence::Some || isLeft || m_model.controlling()) {
        pollLater();
    }
}

void MediaTracking::pollLater() {
    if (m_isMonitoring && !m_poll) {
        m_poll = m_clock.after(2s, [this] { poll(); });
    }
}

void MediaTracking::control(const QString &word) {
    m_control.start(word);
    pollLater();
}

void MediaTracking::openMusic() {
    m_musicPlayer.open();
    Media media = m_model.media();
    media.active = true;
    media.source = Media().source;
    media.playerID = Media().playerID;
    media.isSystem = false;
    media.isBrowser = false;
    media.canSeek = false;
    m_model.setMedia(media);
    m_model.setActivity(QStringLiteral("Music is open"));
    pollLater();
}

void MediaTracking::onNotification(const QString &name, const QVariantMap &information) {
    Media media = m_model.media();
    if (media.isSystem) {
        return;
    }
    media.active = true;
    media.source = Media().source;
    media.playerID = Media().playerID;
    if (name.contains(QLatin1StringView("spotify"))) {
        media.source = QStringLiteral("Spotify");
        media.playerID = QStringLiteral("com.spotify.client");
    }
    media.title = textOr(information.value(QStringLiteral("Name")), Media().title);
    media.artist = textOr(information.value(QStringLiteral("Artist")), QStringLiteral(""));
    media.playing = information.value(QStringLiteral("Player State")) == QStringLiteral("Playing");
    m_model.setMedia(media);
    if (!m_model.running()) {
        m_model.setActivity(media.title);
    }
}

} // namespace perchly
