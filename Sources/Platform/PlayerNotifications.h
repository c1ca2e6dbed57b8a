#pragma once

#include <QObject>
#include <QVariantMap>

namespace perchly {

/// Whether any media player runs. Unknown without a session bus, or until the bus has answered.
enum class PlayerPresence { Unknown, None, Some };

/// Changes of media players. Main thread only.
class PlayerNotifications : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

    /// Starts listening. Call it once.
    virtual void start() = 0;

    /// Cheap to call.
    [[nodiscard]] virtual PlayerPresence presence() const = 0;

Q_SIGNALS:
    void presenceChanged();

    /// A player has answered for the first time, has left, or has changed its track, its state or
    /// whether it can seek. May come many times a second.
    void changed();

    /// The music application or Spotify has changed its state. The name is
    /// "com.apple.Music.playerInfo" or "com.spotify.client.PlaybackStateChanged"; the information
    /// holds strings for the keys "Player" (its name), "Name", "Artist" and "Player State"
    /// ("Playing", "Paused" or "Stopped"), omitting unknown ones.
    void received(const QString &name, const QVariantMap &information);
};

} // namespace perchly
