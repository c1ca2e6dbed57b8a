#pragma once

#include "PlayerBus.h"
#include "SessionOwner.h"

#include <optional>
#include <string>
#include <vector>

namespace perchly {

/// The one player that the desktop's media keys would reach. Each object looks for it once.
class MediaSession {
public:
    /// Connects to the bus and lists its players; false when the bus does not answer. Only the
    /// first call has an effect.
    [[nodiscard]] bool load();

    /// The player that owns the session, or null.
    [[nodiscard]] const Player *find();

    /// Sends one of the commands 0 (play), 1 (pause), 4 (next) and 5 (previous). True when the
    /// player offers the command and has answered in time; false for any other number.
    [[nodiscard]] bool send(int command);

    /// Reads the player again and, if it can seek, moves to a position in seconds.
    void setElapsedTime(double position);

private:
    [[nodiscard]] bool pause(const Player &player);

    std::optional<PlayerBus> m_bus;
    std::optional<std::vector<std::string>> m_names;
    std::optional<std::vector<Player>> m_players;
    PlayerMemory m_memory;
};

} // namespace perchly
