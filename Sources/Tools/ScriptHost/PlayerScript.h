#pragma once

#include <optional>
#include <string_view>

namespace perchly {

enum class ScriptedPlayer { Spotify, MusicApplication };
enum class ScriptedCommand { PlayPause, NextTrack, PreviousTrack, Rewind, Forward };

/// What a player script asks of whom.
struct PlayerScript {
    ScriptedPlayer player = ScriptedPlayer::MusicApplication;
    ScriptedCommand command = ScriptedCommand::PlayPause;
};

/// Reads a script of exactly these four lines, with one of the known players and commands:
///
///     tell application id "com.apple.Music"
///     playpause
///     return player state as string
///     end tell
///
/// Anything else is nothing, so that whatever was put into the two places stays in its place.
[[nodiscard]] std::optional<PlayerScript> parsePlayerScript(std::string_view text);

} // namespace perchly
