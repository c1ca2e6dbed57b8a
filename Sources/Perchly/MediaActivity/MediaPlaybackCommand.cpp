#include "MediaPlaybackCommand.h"

#include "MediaActivity.h"

#include <QHash>

#include <algorithm>
#include <cmath>

namespace perchly {

std::optional<MediaPlaybackCommand> resolvePlaybackCommand(const QString &word, bool playing) {
    using Command = MediaPlaybackCommand;
    const QHash<QString, Command> commands{
        {QStringLiteral("playpause"), playing ? Command::Pause : Command::Play},
        {QStringLiteral("next track"), Command::Next},
        {QStringLiteral("previous track"), Command::Previous},
        {QStringLiteral("rewind"), Command::Rewind},
        {QStringLiteral("forward"), Command::Forward}};
    const auto found = commands.constFind(word);
    return found != commands.cend() ? std::optional(*found) : std::nullopt;
}

bool isSeek(MediaPlaybackCommand command) {
    return command == MediaPlaybackCommand::Rewind || command == MediaPlaybackCommand::Forward;
}

std::optional<double> seekTarget(MediaPlaybackCommand command, const MediaActivity &activity) {
    constexpr double span = 15;
    const double elapsed = activity.elapsedTime.value_or(NAN);
    const double duration = activity.duration.value_or(NAN);
    if (!isSeek(command) || !std::isfinite(elapsed) || !std::isfinite(duration) || duration <= 0) {
        return std::nullopt;
    }
    const double target = elapsed + (command == MediaPlaybackCommand::Rewind ? -span : span);
    return std::max(std::min(target, duration), 0.0);
}

} // namespace perchly
