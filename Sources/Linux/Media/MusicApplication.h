#pragma once

#include <optional>
#include <string>

/// Which application is the user's for music. Without Qt, so that companions can use it too.
namespace perchly {

/// An installed application, by its desktop entry.
struct MusicApplication {
    std::string identifier; ///< the entry's name without ".desktop"
    std::string path;       ///< the entry's absolute path
};

/// The music application: the default for audio/mpeg, then for audio/flac, if that is a music
/// player; else the first installed one that is; else the default whatever it is. A music player
/// has the category "Player" or opens audio files, and is not a tool for video, television, mixing,
/// recording or making music. Reads many small files, so not on the main thread.
[[nodiscard]] std::optional<MusicApplication> findMusicApplication();

/// Whether a player with that bus name and desktop entry is the application. Many give no entry or
/// an old one, so the last word of either name is enough.
[[nodiscard]] bool isPlayerOf(const std::string &identifier, const std::string &busName,
                              const std::string &desktopEntry);

} // namespace perchly
