#include "MediaActivityReader.h"

#include "MediaScripts.h"
#include "PlayerNotifications.h"
#include "ScriptHost.h"

namespace perchly {

using namespace std::chrono_literals;

Task MediaActivityReader::read(ReadCompletion completion) {
    const PlayerPresence presence = m_players.presence();
    if (presence != PlayerPresence::Some || !m_host.isRunnable()) {
        const MediaReading reading{.succeeded = presence == PlayerPresence::None, .activity = {}};
        return m_clock.after(
            0ms, [completion = std::move(completion), reading] { completion(reading); });
    }
    return execute(readScript(), [completion = std::move(completion)](const auto &output) {
        completion(output ? decodeMediaReading(*output) : MediaReading());
    });
}

Task MediaActivityReader::send(MediaPlaybackCommand command, std::optional<double> position,
                               SendCompletion completion) {
    const auto script = sendScript(command, position);
    if (!script) {
        return m_clock.after(0ms, [completion = std::move(completion)] { completion(false); });
    }
    return execute(*script, [completion = std::move(completion)](const auto &output) {
        completion(output && output->trimmed() == "true");
    });
}

Task MediaActivityReader::tell(const QString &playerID, const QString &word,
                               TellCompletion completion) {
    // The companion's own timeout is shorter.
    return m_host.run({QStringLiteral("-e"), playerScript(playerID, word)}, 15s,
                      std::move(completion));
}

Task MediaActivityReader::execute(const QString &script, Output completion) {
    return m_host.run(
        {QStringLiteral("-l"), QStringLiteral("JavaScript"), QStringLiteral("-e"), script}, 5s,
        std::move(completion));
}

} // namespace perchly
