#pragma once

#include <QString>

#include <optional>

namespace perchly {

struct MediaActivity;

/// The first four have the numbers by which scripts send them.
enum class MediaPlaybackCommand { Play = 0, Pause = 1, Next = 4, Previous = 5, Rewind, Forward };

/// Resolves a command word of the shelf's buttons: "playpause", "next track", "previous track",
/// "rewind" or "forward".
[[nodiscard]] std::optional<MediaPlaybackCommand> resolvePlaybackCommand(const QString &word,
                                                                         bool playing);

[[nodiscard]] bool isSeek(MediaPlaybackCommand command);

/// Where a seek of 15 seconds ends, in seconds, within the track. Nothing for other commands, and
/// when the activity has no position or no proper length.
[[nodiscard]] std::optional<double> seekTarget(MediaPlaybackCommand command,
                                               const MediaActivity &activity);

} // namespace perchly
