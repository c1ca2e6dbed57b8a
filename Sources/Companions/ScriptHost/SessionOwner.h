#pragma once

#include "Player.h"

#include <string>
#include <vector>

namespace perchly {

/// A player as of the last reading.
struct RememberedPlayer {
    std::string busName;
    bool playing = false;
    /// We paused it, so it keeps the session until another one starts.
    bool held = false;

    friend bool operator==(const RememberedPlayer &, const RememberedPlayer &) = default;
};

/// Players in the order in which they own the media session: the last one started comes first.
using PlayerMemory = std::vector<RememberedPlayer>;

/// Updates the memory after a reading of the players. Those that have started to play come first,
/// the others keep their order, new ones follow, and those that have gone are dropped. A player
/// that did not answer stays unchanged.
[[nodiscard]] PlayerMemory remember(const PlayerMemory &before, const std::vector<Player> &players);

/// Updates the memory after we paused this player. Otherwise the pause would hand the session to
/// another player, and the next press would go there.
[[nodiscard]] PlayerMemory hold(PlayerMemory memory, const std::string &busName);

/// The player that owns the session: the held one, else the first that plays, else the first that
/// is paused, never one that is stopped or has no title. Null if there is no such player.
[[nodiscard]] const Player *sessionOwner(const PlayerMemory &memory,
                                         const std::vector<Player> &players);

/// Loads the memory from a file in the runtime folder, which lasts until logout; empty if it cannot
/// be read. Storing replaces the whole file.
[[nodiscard]] PlayerMemory loadMemory();
void storeMemory(const PlayerMemory &memory);

} // namespace perchly
