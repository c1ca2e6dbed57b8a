#pragma once

#include "Player.h"

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

struct sd_bus;
struct sd_bus_message;

namespace perchly {

/// The media players of the session bus. Nothing on the bus is ever started by a call. Not for use
/// by several threads.
class PlayerBus {
public:
    /// Connects; nothing when there is no bus.
    [[nodiscard]] static std::optional<PlayerBus> open();

    /// The bus names of players, at most 24, without the one that only repeats what others say.
    /// Nothing when the bus does not answer.
    [[nodiscard]] std::optional<std::vector<std::string>> playerNames();

    /// Asks all of them at once and waits until they have answered or until `limit`; earlier once
    /// `isEnough` says so of what has come, but not before `patience`. A player that has not
    /// answered is in the list all the same.
    [[nodiscard]] std::vector<Player>
    read(const std::vector<std::string> &names, std::chrono::microseconds patience,
         std::chrono::microseconds limit,
         const std::function<bool(const std::vector<Player> &)> &isEnough);

    /// Calls a method of the player interface without arguments; true when it was done in time.
    [[nodiscard]] bool call(const std::string &busName, const char *method);

    /// Moves to a position (seconds) of the track with that object path, or by an offset.
    [[nodiscard]] bool setPosition(const std::string &busName, const std::string &trackPath,
                                   double position);
    [[nodiscard]] bool seek(const std::string &busName, double offset);

private:
    struct Release {
        void operator()(sd_bus *bus) const;
        void operator()(sd_bus_message *message) const;
    };
    using Bus = std::unique_ptr<sd_bus, Release>;
    using Message = std::unique_ptr<sd_bus_message, Release>;

    explicit PlayerBus(Bus bus)
        : m_bus(std::move(bus)) {}

    [[nodiscard]] static Message newCall(sd_bus *bus, const std::string &busName,
                                         const char *interface, const char *method);
    [[nodiscard]] bool perform(const Message &message);

    Bus m_bus;
};

} // namespace perchly
