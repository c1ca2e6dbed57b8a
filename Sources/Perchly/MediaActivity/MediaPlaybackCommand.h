#pragma once

#include <QString>

#include <optional>

namespace perchly {

struct MediaActivity;

/// Scripts send the first four by number.
enum class MediaPlaybackCommand { Play = 0, Pause = 1, Next = 4, Previous = 5, Rewind, Forward };

/// Resolves a button's command word: "playpause", "next track", "previous track", "rewind" or
/// "forward".
[[nodiscard]] std::optional<MediaPlaybackCommand> resolvePlaybackCommand(const QString &word,
                                                                         bool playing);

[[nodiscard]] bool isSeek(MediaPlaybackCommand command);

/// The target of a seek by 15 seconds, in seconds and within the track. nullopt for other commands,
/// or if the activity has no position or no valid length.
[[nodiscard]] std::optional<double> seekTarget(MediaPlaybackCommand command,
                                               const MediaActivity &activity);

} // namespace perchly
