#pragma once

#include "MediaActivityReader.h"
#include "MediaControl.h"

#include <QObject>
#include <QVariantMap>

namespace perchly {

class MusicPlayer;
class PlayerNotifications;
class ScriptHost;
class ShelfModel;

/// Keeps the model's `media` current by reading the desktop's media session whenever a player has
/// changed, or, while the session is empty, from the signals of the music application and Spotify.
/// Also carries out the commands that the model announces. Main thread only.
class MediaTracking : public QObject {
    Q_OBJECT
public:
    /// The model and the hosts must outlive it.
    MediaTracking(ShelfModel &model, Clock &clock, ScriptHost &scripts,
                  PlayerNotifications &notifications, MusicPlayer &musicPlayer);

    /// Reads the session at once, after each change of a player, and after each command. A reading
    /// that fails, or ends while a command is running, changes nothing.
    void startMediaMonitoring();
    void stopMediaMonitoring();

private:
    void read();
    void openMusic();
    void onNotification(const QString &name, const QVariantMap &information);

    ShelfModel &m_model;
    Clock &m_clock;
    MusicPlayer &m_musicPlayer;
    MediaActivityReader m_reader;
    MediaControl m_control;
    Task m_reading; ///< or the pause after it
    bool m_isMonitoring = false;
    bool m_isOutdated = false; ///< a player has changed since the reading began
};

} // namespace perchly
