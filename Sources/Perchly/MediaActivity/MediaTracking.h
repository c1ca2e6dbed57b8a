#pragma once

#include "MediaActivityReader.h"
#include "MediaControl.h"

#include <QObject>
#include <QVariantMap>

#include <optional>

namespace perchly {

class MusicPlayer;
class PlayerNotifications;
class ScriptHost;
class ShelfModel;

/// Keeps the model's picture of what plays. A poll of the desktop's media session comes first;
/// while that has nothing, what the music application and Spotify announce is shown instead.
/// Carries out what the model announces that the person wants. Main thread only.
class MediaTracking : public QObject {
    Q_OBJECT
public:
    /// The model and the hosts must outlive it.
    MediaTracking(ShelfModel &model, Clock &clock, ScriptHost &scripts,
                  PlayerNotifications &notifications, MusicPlayer &musicPlayer);

    /// Reads the session now and then again two seconds after each reading; while no player runs,
    /// only when one comes or the person asks for something. A reading that failed changes nothing,
    /// nor does one that ends while a command is under way.
    void startMediaMonitoring();
    void stopMediaMonitoring();

    /// Takes one reading of the session into the model.
    void applyMedia(const std::optional<MediaActivity> &activity);

    /// Carries out the command with this word, unless one is under way.
    void control(const QString &word);
    /// Opens the person's music application and points the commands at it.
    void music();
    /// Takes what a player announced into the model, unless the session has something.
    void playback(const QString &name, const QVariantMap &information);

private:
    void poll();
    void rest();
    void pollLater();

    ShelfModel &m_model;
    Clock &m_clock;
    const PlayerNotifications &m_players;
    MusicPlayer &m_musicPlayer;
    MediaActivityReader m_reader;
    MediaControl m_control;
    Task m_poll;
    bool m_isMonitoring = false;
};

} // namespace perchly
