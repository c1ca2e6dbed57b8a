#pragma once

#include "Player.h"

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

struct sd_bus;

namespace perchly {

/// The media players of the session bus. Use it on one thread only.
class PlayerBus {
public:
    /// Connects; nullopt if there is no bus.
    [[nodiscard]] static std::optional<PlayerBus> open();

    /// The bus names of players, at most 24, without the one that only mirrors others. nullopt if
    /// the bus does not answer.
    [[nodiscard]] std::optional<std::vector<std::string>> playerNames();

    /// Asks all players at once and waits until `limit`, or only until `softLimit` once `isEnough`
    /// accepts the answers so far. Includes players that did not answer.
    [[nodiscard]] std::vector<Player>
    read(const std::vector<std::string> &names, std::chrono::microseconds softLimit,
         std::chrono::microseconds limit,
         const std::function<bool(const std::vector<Player> &)> &isEnough);

    /// Calls a player method that takes no arguments; true if it returned in time.
    [[nodiscard]] bool call(const std::string &busName, const char *method);

    /// Moves to a position (in seconds) in the track with that object path, or by an offset.
    [[nodiscard]] bool setPosition(const std::string &busName, const std::string &trackPath,
                                   double position);
    [[nodiscard]] bool seek(const std::string &busName, double offset);

private:
    struct Close {
        void operator()(sd_bus *bus) const;
    };
    using Bus = std::unique_ptr<sd_bus, Close>;

    explicit PlayerBus(Bus bus)
        : m_bus(std::move(bus)) {}

    Bus m_bus;
};

} // namespace perchly
