#pragma once

#include "PlayerScript.h"

#include <optional>
#include <string_view>

namespace perchly {

/// Carries out a player script: sends the command to its player and returns the player's state
/// after it ("playing", "paused" or "stopped"). Nothing when the player does not run, does not
/// offer the command, or has not answered in time.
[[nodiscard]] std::optional<std::string_view> runPlayerScript(const PlayerScript &script);

} // namespace perchly
