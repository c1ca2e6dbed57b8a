#pragma once

#include "PlayerBus.h"
#include "SessionOwner.h"

#include <optional>

namespace perchly {

/// The one player that the desktop's media keys would reach, found anew by each object.
class MediaSession {
public:
    /// Connects to the bus; false when there is none. Needed before the others.
    [[nodiscard]] bool load();

    enum class Lookup { Found, NoPlayer, Failed };

    /// Finds the player that owns the session, once.
    [[nodiscard]] Lookup find();
    /// What was found; empty texts unless `find` said so.
    [[nodiscard]] const Player &player() const { return m_player; }

    /// Sends one of the numbers 0 (play), 1 (pause), 4 (next) and 5 (previous). True when the
    /// player offers that and has answered in time; false also for any other number.
    [[nodiscard]] bool send(int command);

    /// Moves to a position in seconds, if the player can; whether it does must be looked at later.
    void setElapsedTime(double position);

private:
    bool pause();

    std::optional<PlayerBus> m_bus;
    std::optional<Lookup> m_lookup;
    Player m_player;
    PlayerMemory m_memory;
};

} // namespace perchly
