#pragma once

#include <optional>
#include <string>
#include <string_view>

/// Which of the person's applications is theirs for music. Without the toolkit, so that companions
/// can use it too.
namespace perchly {

/// An installed application, by its desktop entry.
struct MusicApplication {
    std::string identifier; ///< the entry's name without ".desktop"
    std::string path;       ///< the entry's absolute path
};

/// What opens music: the person's default for audio/mpeg, then for audio/flac, if that is a music
/// player; else the first installed one that is; else the default whatever it is. Reads many small
/// files, so not on the main thread.
[[nodiscard]] std::optional<MusicApplication> findMusicApplication();

/// A player by its categories ("Player", or a type of audio among `types`), and not a tool for
/// video, television, mixing, recording or making music. Both are lists as in a desktop entry, with
/// ";".
[[nodiscard]] bool isMusicPlayer(std::string_view categories, std::string_view types);

/// Whether a player with that bus name, which gives `desktopEntry` as its own, is the application.
/// Many give no entry or an old one, so the last word of either name is enough.
[[nodiscard]] bool isPlayerOf(std::string_view identifier, std::string_view busName,
                              std::string_view desktopEntry);

} // namespace perchly
