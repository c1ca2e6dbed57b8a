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

/// Players in the order in which they would own the media session: the last to start comes first.
using PlayerMemory = std::vector<RememberedPlayer>;

/// The memory after a look at the players. Those that have begun to play since come first, the
/// others keep their order, new ones follow, and those that have gone are forgotten. A player that
/// did not answer stays as it was.
[[nodiscard]] PlayerMemory remember(const PlayerMemory &before, const std::vector<Player> &players);

/// The memory after this player was paused by us. Without it, a pause would hand the session to
/// another one that plays, and the next press would go there.
[[nodiscard]] PlayerMemory hold(PlayerMemory memory, const std::string &busName);

/// The player that owns the session: the held one, else the first in that order that plays, else
/// the first that is paused. One that is stopped or has no title never does. Null when there is
/// none.
[[nodiscard]] const Player *sessionOwner(const PlayerMemory &memory,
                                         const std::vector<Player> &players);

/// The memory in the file of this run of the desktop; empty when it cannot be read. The file must
/// be a plain one, not a link.
[[nodiscard]] PlayerMemory loadMemory();
/// Replaces the file whole; it is readable by the person alone. Without a runtime folder, nothing.
void storeMemory(const PlayerMemory &memory);

} // namespace perchly
