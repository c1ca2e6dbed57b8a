#include "MediaTracking.h"

#include "MusicPlayer.h"
#include "PlayerNotifications.h"
#include "ShelfModel.h"

namespace perchly {

using namespace std::chrono_literals;

namespace {

const QString musicID = QStringLiteral("com.apple.Music");
const QString spotifyID = QStringLiteral("com.spotify.client");

QString textOr(const QVariant &value, const QString &otherwise) {
    return value.metaType() == QMetaType::fromType<QString>() ? value.toString() : otherwise;
}

} // namespace

MediaTracking::MediaTracking(ShelfModel &model, Clock &clock, ScriptHost &scripts,
                             PlayerNotifications &notifications, MusicPlayer &musicPlayer)
    : m_model(model)
    , m_clock(clock)
    , m_players(notifications)
    , m_musicPlayer(musicPlayer)
    , m_reader(scripts, notifications, clock)
    , m_control(model, m_reader, clock, [this](const auto &activity) { applyMedia(activity); }) {
    connect(&model, &ShelfModel::controlRequested, this, &MediaTracking::control);
    connect(&model, &ShelfModel::musicRequested, this, &MediaTracking::music);
    connect(&notifications, &PlayerNotifications::received, this, &MediaTracking::playback);
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
            applyMedia(reading.activity);
        }
        rest();
    });
}

/// Without a player there is nothing to read until one comes. One that left while it was read is
/// still shown.
void MediaTracking::rest() {
    m_poll.reset();
    const bool isLeft = m_players.presence() == PlayerPresence::None && m_model.systemMedia();
    if (m_players.presence() == PlayerPresence::Some || isLeft || m_model.controlling()) {
        pollLater();
    }
}

void MediaTracking::pollLater() {
    if (m_isMonitoring && !m_poll) {
        m_poll = m_clock.after(2s, [this] { poll(); });
    }
}

void MediaTracking::applyMedia(const std::optional<MediaActivity> &activity) {
    m_model.setMediaIsBrowser(activity && activity->isBrowser());
    m_model.setMediaCanSeek(activity &&
                            seekTarget(MediaPlaybackCommand::Rewind, *activity).has_value());
    m_model.setSystemMedia(activity.has_value());
    m_model.setMusicActive(activity.has_value());
    m_model.setPlaying(activity && activity->playing);
    m_model.setMusicTitle(activity ? activity->title : QStringLiteral("Music"));
    m_model.setMusicArtist(activity ? activity->artist : QStringLiteral(""));
    m_model.setMediaSource(activity ? activity->source : QStringLiteral("Media"));
}

void MediaTracking::control(const QString &word) {
    m_control.start(word);
    pollLater();
}

void MediaTracking::music() {
    m_musicPlayer.open();
    m_model.setMusicActive(true);
    m_model.setPlayerID(musicID);
    m_model.setSystemMedia(false);
    m_model.setMediaIsBrowser(false);
    m_model.setMediaCanSeek(false);
    m_model.setMediaSource(QStringLiteral("Apple Music"));
    m_model.setActivity(QStringLiteral("Music is open"));
    pollLater();
}

void MediaTracking::playback(const QString &name, const QVariantMap &information) {
    if (m_model.systemMedia()) {
        return;
    }
    const bool isSpotify = name.contains(QLatin1StringView("spotify"));
    const QString title =
        textOr(information.value(QStringLiteral("Name")), QStringLiteral("Music"));
    const QString artist = textOr(information.value(QStringLiteral("Artist")), QStringLiteral(""));
    const bool playing = textOr(information.value(QStringLiteral("Player State")), {}) ==
                         QLatin1StringView("Playing");
    m_model.setMusicActive(true);
    m_model.setPlayerID(isSpotify ? spotifyID : musicID);
    m_model.setMediaSource(isSpotify ? QStringLiteral("Spotify") : QStringLiteral("Apple Music"));
    m_model.setMusicTitle(title);
    m_model.setMusicArtist(artist);
    m_model.setPlaying(playing);
    if (m_model.running()) {
        return;
    }
    m_model.setActivity(title);
    m_model.setArtist(artist);
}

} // namespace perchly
