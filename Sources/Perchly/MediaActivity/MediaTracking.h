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

/// Keeps the model's `media` current by polling the desktop's media session, or, while that is
/// empty, from the signals of the music application and Spotify. Also carries out the commands that
/// the model announces. Main thread only.
class MediaTracking : public QObject {
    Q_OBJECT
public:
    /// The model and the hosts must outlive it.
    MediaTracking(ShelfModel &model, Clock &clock, ScriptHost &scripts,
                  PlayerNotifications &notifications, MusicPlayer &musicPlayer);

    /// Reads the session at once and two seconds after each reading; while no player runs, only
    /// when one starts or the user presses a button. A reading that fails, or ends while a command
    /// is running, changes nothing.
    void startMediaMonitoring();
    void stopMediaMonitoring();

private:
    void poll();
    void rest();
    void pollLater();
    void control(const QString &word);
    void openMusic();
    void onNotification(const QString &name, const QVariantMap &information);

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
