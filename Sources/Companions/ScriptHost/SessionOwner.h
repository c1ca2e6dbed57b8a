#pragma once

#include "Player.h"

#include <string>
#include <vector>

namespace perchly {

/// A player as it was at the last look.
struct RememberedPlayer {
    std::string busName;
    bool playing = false;
    /// We paused it, so it keeps the session until another one starts.
    bool held = false;

    friend bool operator==(const RememberedPlayer &, const RememberedPlayer &) = default;
};

/// Players in the order in which they own the media session: the last to start comes first.
using PlayerMemory = std::vector<RememberedPlayer>;

/// The memory after a look at the players. Those that have started to play come first, the others
/// keep their order, new ones follow, and those that have gone are dropped. A player that did not
/// answer stays as it was.
[[nodiscard]] PlayerMemory remember(const PlayerMemory &before, const std::vector<Player> &players);

/// The memory after we paused this player. Otherwise a pause would hand the session to another
/// player, and the next press would go there.
[[nodiscard]] PlayerMemory hold(PlayerMemory memory, const std::string &busName);

/// The player that owns the session: the held one, else the first in that order that plays, else
/// the first that is paused. One that is stopped or has no title never does. Null when there is
/// none.
[[nodiscard]] const Player *sessionOwner(const PlayerMemory &memory,
                                         const std::vector<Player> &players);

/// The memory in a file of the runtime folder, which ends with the login; empty when it cannot be
/// read. It is replaced as a whole.
[[nodiscard]] PlayerMemory loadMemory();
void storeMemory(const PlayerMemory &memory);

} // namespace perchly
