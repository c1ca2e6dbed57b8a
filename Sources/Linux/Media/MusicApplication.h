#pragma once

#include <optional>
#include <string>

/// Finds the user's music application. Without Qt, so that companions can use it, too.
namespace perchly {

/// An installed application, by its desktop entry.
struct MusicApplication {
    std::string identifier; ///< the entry's name without ".desktop"
    std::string path;       ///< the entry's absolute path
};

/// The music application: the default for audio/mpeg, or else for audio/flac, if it is a music
/// player; otherwise the first installed music player; otherwise that default, whatever it is. A
/// music player has the category "Player" or opens audio files, and is not a tool for video,
/// television, mixing, recording or making music. Reads many small files: not for the main thread.
[[nodiscard]] std::optional<MusicApplication> findMusicApplication();

/// Whether a player with that bus name and desktop entry is the application. Many players report no
/// entry or an old one, so a match with the last word of either name is enough.
[[nodiscard]] bool isPlayerOf(const std::string &identifier, const std::string &busName,
                              const std::string &desktopEntry);

} // namespace perchly
