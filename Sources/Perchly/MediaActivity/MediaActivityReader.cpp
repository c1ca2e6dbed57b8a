#include "MediaActivityReader.h"

#include "MediaScripts.h"
#include "PlayerNotifications.h"
#include "ScriptHost.h"

namespace perchly {

using namespace std::chrono_literals;

namespace {

constexpr std::chrono::milliseconds watchdog = 5s;
/// The companion ends itself long before; one that does not must not hold the controls for good.
constexpr std::chrono::milliseconds patience = 15s;

std::optional<bool> decodeFlag(const std::optional<QByteArray> &output) {
    const QByteArray text = output.value_or(QByteArray()).trimmed();
    if (text == "true") {
        return true;
    }
    return text == "false" ? std::optional(false) : std::nullopt;
}

} // namespace

Task MediaActivityReader::execute(const QString &script, Output completion) {
    return m_host.run(
        {QStringLiteral("-l"), QStringLiteral("JavaScript"), QStringLiteral("-e"), script},
        watchdog, std::move(completion));
}

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
        completion(decodeFlag(output));
    });
}

Task MediaActivityReader::tell(const QString &playerID, const QString &word, Output completion) {
    return m_host.run({QStringLiteral("-e"), playerScript(playerID, word)}, patience,
                      std::move(completion));
}

} // namespace perchly
