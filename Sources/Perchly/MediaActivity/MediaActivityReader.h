#pragma once

#include "Clock.h"
#include "MediaActivity.h"
#include "MediaPlaybackCommand.h"

#include <QByteArray>
#include <QString>

#include <functional>
#include <optional>

namespace perchly {

class PlayerNotifications;
class ScriptHost;

/// Reads the desktop's media session and sends commands to it through scripts. Nothing blocks:
/// results come on the main thread, never before the call has returned, and not at all once the
/// task is destroyed. Several calls may be under way at once. Main thread only.
class MediaActivityReader {
public:
    using ReadCompletion = std::function<void(const MediaReading &reading)>;
    using SendCompletion = std::function<void(bool accepted)>;
    using TellCompletion = std::function<void(const std::optional<QByteArray> &state)>;

    /// The hosts must outlive the reader.
    MediaActivityReader(ScriptHost &host, const PlayerNotifications &players, Clock &clock)
        : m_host(host)
        , m_players(players)
        , m_clock(clock) {}

    /// While no player runs there is nothing to read, and no process is started to find that out.
    [[nodiscard]] Task read(ReadCompletion completion);

    /// Whether the player accepted the command. A seek needs its target in seconds; without one it
    /// is not accepted and nothing is run.
    [[nodiscard]] Task send(MediaPlaybackCommand command, std::optional<double> position,
                            SendCompletion completion);

    /// Runs a command word in one player and gives the player's state after it; nothing when that
    /// failed.
    [[nodiscard]] Task tell(const QString &playerID, const QString &word,
                            TellCompletion completion);

private:
    using Output = std::function<void(const std::optional<QByteArray> &output)>;

    [[nodiscard]] Task execute(const QString &script, Output completion);

    ScriptHost &m_host;
    const PlayerNotifications &m_players;
    Clock &m_clock;
};

} // namespace perchly
