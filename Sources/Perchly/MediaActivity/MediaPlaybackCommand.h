#pragma once

#include <QString>

#include <optional>

namespace perchly {

struct MediaActivity;

enum class MediaPlaybackCommand { Play, Pause, Next, Previous, Rewind, Forward };

/// What a command word of the shelf's buttons means while something plays or nothing does. The
/// words are "playpause", "next track", "previous track", "rewind" and "forward".
[[nodiscard]] std::optional<MediaPlaybackCommand> resolvePlaybackCommand(const QString &word,
                                                                         bool playing);

[[nodiscard]] bool isSeek(MediaPlaybackCommand command);

/// Where a seek of 15 seconds ends, in seconds, within the track. Nothing for other commands, and
/// when the activity has no position or no proper length.
[[nodiscard]] std::optional<double> seekTarget(MediaPlaybackCommand command,
                                               const MediaActivity &activity);

} // namespace perchly
