#pragma once

#include "MediaPlaybackCommand.h"

#include <QString>

#include <optional>

/// The scripts for the script host. Their texts are a protocol: do not change any character.
namespace perchly {

/// Prints the session as JSON.
[[nodiscard]] QString readScript();

/// Sends a command, or moves to a position in seconds, and prints whether the player accepted it.
/// nullopt for a seek without a finite position.
[[nodiscard]] std::optional<QString> sendScript(MediaPlaybackCommand command,
                                                std::optional<double> position);

/// Sends a command word to one player by its identifier and prints the player's state.
[[nodiscard]] QString playerScript(const QString &playerID, const QString &word);

} // namespace perchly
