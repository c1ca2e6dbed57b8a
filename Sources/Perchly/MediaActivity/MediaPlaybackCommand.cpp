#include "MediaPlaybackCommand.h"

#include "MediaActivity.h"

#include <algorithm>
#include <cmath>

namespace perchly {

namespace {

constexpr double seekSpan = 15;

} // namespace

std::optional<MediaPlaybackCommand> resolvePlaybackCommand(const QString &word, bool playing) {
    using Command = MediaPlaybackCommand;
    if (word == QLatin1StringView("playpause")) {
        return playing ? Command::Pause : Command::Play;
    }
    if (word == QLatin1StringView("next track")) {
        return Command::Next;
    }
    if (word == QLatin1StringView("previous track")) {
        return Command::Previous;
    }
    if (word == QLatin1StringView("rewind")) {
        return Command::Rewind;
    }
    return word == QLatin1StringView("forward") ? std::optional(Command::Forward) : std::nullopt;
}

bool isSeek(MediaPlaybackCommand command) {
    return command == MediaPlaybackCommand::Rewind || command == MediaPlaybackCommand::Forward;
}

std::optional<double> seekTarget(MediaPlaybackCommand command, const MediaActivity &activity) {
    const auto isFinite = [](const std::optional<double> &time) {
        return time && std::isfinite(*time);
    };
    if (!isSeek(command) || !isFinite(activity.elapsedTime) || !isFinite(activity.duration) ||
        *activity.duration <= 0) {
        return std::nullopt;
    }
    const double span = command == MediaPlaybackCommand::Rewind ? -seekSpan : seekSpan;
    return std::max(std::min(*activity.elapsedTime + span, *activity.duration), 0.0);
}

} // namespace perchly
