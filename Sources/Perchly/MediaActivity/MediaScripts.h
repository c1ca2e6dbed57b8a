#pragma once

#include "MediaPlaybackCommand.h"

#include <QString>

#include <optional>

/// The texts that the script host is given. They are a protocol: not a letter of them may change.
namespace perchly {

/// Prints the session as JSON.
[[nodiscard]] QString readScript();

/// Sends a command, or moves to a position in seconds, and prints whether it was accepted. Nothing
/// for a seek without a finite position.
[[nodiscard]] std::optional<QString> sendScript(MediaPlaybackCommand command,
                                                std::optional<double> position);

/// Sends a command word to one player by its identifier and prints the player's state.
[[nodiscard]] QString playerScript(const QString &playerID, const QString &word);

} // namespace perchly
