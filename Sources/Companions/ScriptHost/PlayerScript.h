#pragma once

#include <optional>
#include <string_view>

namespace perchly {

/// Carries out a script of exactly these four lines, with one of the known players and commands:
///
/// tell application id "com.apple.Music"
/// playpause
/// return player state as string
/// end tell
///
/// Returns the player's state after the command: "playing", "paused" or "stopped". Returns nullopt
/// for any other text, or if the player does not run, does not offer the command, or does not
/// answer in time.
[[nodiscard]] std::optional<std::string_view> runPlayerScript(std::string_view script);

} // namespace perchly
