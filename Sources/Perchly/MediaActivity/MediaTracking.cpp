#include "MediaTracking.h"

#include "MusicPlayer.h"
#include "PlayerNotifications.h"
#include "ShelfModel.h"

#include <QPointer>

namespace perchly {

using namespace std::chrono_literals;

namespace {

constexpr auto readingPause = 30ms;

QString textOr(const QVariant &value, const QString &otherwise) {
    return value.typeId() == QMetaType::QString ? textToShow(value.toString()) : otherwise;
}

} // namespace

MediaTracking::MediaTracking(ShelfModel &model, Clock &clock, ScriptHost &scripts,
                             PlayerNotifications &notifications, MusicPlayer &musicPlayer)
    : m_model(model)
    , m_clock(clock)
    , m_musicPlayer(musicPlayer)
    , m_reader(scripts, notifications, clock)
    , m_control(model, m_reader, clock) {
    connect(&model, &ShelfModel::controlRequested, this,
            [this](const QString &word) { m_control.start(word); });
    connect(&model, &ShelfModel::musicRequested, this, &MediaTracking::openMusic);
    connect(&model, &ShelfModel::controllingChanged, this, [this] {
        if (!m_model.controlling()) {
            read();
        }
    });
    connect(&notifications, &PlayerNotifications::received, this, &MediaTracking::onNotification);
    connect(&notifications, &PlayerNotifications::presenceChanged, this, &MediaTracking::read);
    connect(&notifications, &PlayerNotifications::changed, this, &MediaTracking::read);
}

void MediaTracking::startMediaMonitoring() {
    m_isMonitoring = true;
    read();
}

void MediaTracking::stopMediaMonitoring() {
    m_isMonitoring = false;
    m_reading.reset();
}

void MediaTracking::read() {
    if (m_reading || !m_isMonitoring) {
        m_isOutdated = true;
        return;
    }
    m_isOutdated = false;
    m_reading = m_reader.read([this](const MediaReading &reading) {
        if (reading.succeeded && !m_model.controlling()) {
            applyMedia(m_model, reading.activity);
        }
        // Some players send hundreds of signals a second.
        m_reading = m_clock.after(readingPause, [this] {
            m_reading.reset();
            if (m_isOutdated) {
                read();
            }
        });
    });
}

void MediaTracking::openMusic() {
    m_musicPlayer.open([guard = QPointer(this)](const QString &error) {
        if (guard && error.isEmpty()) {
            guard->m_model.setActivity(tr("Music is open"));
        } else if (guard) {
            guard->m_model.setControlError(error);
        }
    });
}

void MediaTracking::onNotification(const QString &name, const QVariantMap &information) {
    Media media = m_model.media();
    if (media.isSystem) {
        return;
    }
    const QVariant state = information.value(QStringLiteral("Player State"));
    media.playing = state == QStringLiteral("Playing");
    media.active = media.playing || state == QStringLiteral("Paused");
    media.source = textOr(information.value(QStringLiteral("Player")), Media().source);
    media.playerID = Media().playerID;
    if (name.contains(QLatin1StringView("spotify"))) {
        media.playerID = QStringLiteral("com.spotify.client");
    }
    media.title = textOr(information.value(QStringLiteral("Name")), Media().title);
    media.artist = textOr(information.value(QStringLiteral("Artist")), QStringLiteral(""));
    m_model.setMedia(media);
    if (media.active && !m_model.running()) {
        m_model.setActivity(media.title);
    }
}

} // namespace perchly
