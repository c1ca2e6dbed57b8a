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
/// results come on the main thread, never before the call has returned; destroying the task drops
/// them. Several calls may run at once. Main thread only.
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

    /// Starts no process while no player runs: the reading is then empty.
    [[nodiscard]] Task read(ReadCompletion completion);

    /// Reports whether the player accepted the command. A seek without a target in seconds is not
    /// accepted and runs nothing.
    [[nodiscard]] Task send(MediaPlaybackCommand command, std::optional<double> position,
                            SendCompletion completion);

    /// Sends a command word to one player and reports the player's state after it; nullopt on
    /// failure.
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
