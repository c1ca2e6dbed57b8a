#pragma once

#include <QString>

namespace perchly {

/// The current track and its player.
struct Media {
    bool active = false; ///< something plays or is paused
    bool playing = false;
    QString title = QStringLiteral("Music");
    QString artist = QStringLiteral("");
    QString source = QStringLiteral("Apple Music"); ///< the player's name
    bool isSystem = false;                          ///< it comes from the desktop's media session
    /// Identifies the player that commands go to while the media session has nothing.
    QString playerID = QStringLiteral("com.apple.Music");
    bool isBrowser = false;
    bool canSeek = false;

    friend bool operator==(const Media &, const Media &) = default;
};

} // namespace perchly
