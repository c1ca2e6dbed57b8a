#pragma once

#include <QCoreApplication>
#include <QString>

namespace perchly {

/// The current track and its player.
struct Media {
    bool active = false; ///< playing or paused
    bool playing = false;
    QString title = QCoreApplication::translate("Media", "Music");
    QString artist = QStringLiteral("");
    QString source = QCoreApplication::translate("Media", "Music"); ///< the player's name
    bool isSystem = false; ///< from the desktop's media session
    /// The player that gets commands while the media session is empty.
    QString playerID = QStringLiteral("com.apple.Music");
    bool isBrowser = false;
    bool canSeek = false;

    friend bool operator==(const Media &, const Media &) = default;
};

} // namespace perchly
