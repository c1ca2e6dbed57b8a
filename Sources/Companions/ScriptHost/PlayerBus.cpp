#include "PlayerBus.h"

#include <systemd/sd-bus.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace perchly {

using namespace std::chrono_literals;
using std::chrono::microseconds;
using std::chrono::steady_clock;

namespace {

constexpr const char *path = "/org/mpris/MediaPlayer2";
constexpr const char *rootInterface = "org.mpris.MediaPlayer2";
constexpr const char *playerInterface = "org.mpris.MediaPlayer2.Player";
constexpr std::size_t maxPlayers = 24;
constexpr microseconds callTimeout = 1500ms;

bool isPlayer(std::string_view name) {
    return name.starts_with("org.mpris.MediaPlayer2.") &&
           name != "org.mpris.MediaPlayer2.playerctld";
}

/// A pending request to one player.
struct Question {
    Player *player = nullptr;
    int *open = nullptr;
};

int onProperties(sd_bus_message *reply, void *data, sd_bus_error *) {
    auto *question = static_cast<Question *>(data);
    --*question->open;
    if (sd_bus_message_is_method_error(reply, nullptr) <= 0) {
        readProperties(reply, *question->player);
    }
    return 1;
}

int onPlayerProperties(sd_bus_message *reply, void *data, sd_bus_error *error) {
    auto *question = static_cast<Question *>(data);
    question->player->answered = sd_bus_message_is_method_error(reply, nullptr) <= 0;
    return onProperties(reply, data, error);
}

std::int64_t toMicroseconds(double seconds) {
    return std::llround(seconds * 1e6);
}

} // namespace

void PlayerBus::Close::operator()(sd_bus *bus) const {
    sd_bus_close_unref(bus); // does not flush, which would wait for a dead bus
}

std::optional<PlayerBus> PlayerBus::open() {
    sd_bus *bus = nullptr;
    if (sd_bus_open_user(&bus) < 0) {
        return std::nullopt;
    }
    sd_bus_set_method_call_timeout(bus, callTimeout.count());
    return PlayerBus(Bus(bus));
}

std::optional<std::vector<std::string>> PlayerBus::playerNames() {
    char **all = nullptr;
    if (sd_bus_list_names(m_bus.get(), &all, nullptr) < 0) {
        return std::nullopt;
    }
    std::vector<std::string> names;
    for (char **name = all; *name != nullptr; ++name) {
        if (isPlayer(*name)) {
            names.emplace_back(*name);
        }
        std::free(*name);
    }
    std::free(all);
    std::ranges::sort(names); // makes the choice among equal players stable
    names.resize(std::min(names.size(), maxPlayers));
    return names;
}

std::vector<Player>
PlayerBus::read(const std::vector<std::string> &names, microseconds softLimit, microseconds limit,
                const std::function<bool(const std::vector<Player> &)> &isEnough) {
    std::vector<Player> players(names.size());
    std::vector<Question> questions(names.size());
    std::vector<sd_bus_slot *> slots;
    int open = 0;
    for (std::size_t index = 0; index < names.size(); ++index) {
        players[index].busName = names[index];
        questions[index] = {&players[index], &open};
        for (const auto &[interface, handler] : {std::pair(rootInterface, &onProperties),
                                                 std::pair(playerInterface, &onPlayerProperties)}) {
            sd_bus_slot *slot = nullptr;
            if (sd_bus_call_method_async(m_bus.get(), &slot, names[index].c_str(), path,
                                         "org.freedesktop.DBus.Properties", "GetAll", handler,
                                         &questions[index], "s", interface) >= 0) {
                slots.push_back(slot);
                ++open;
            }
        }
    }
    const auto start = steady_clock::now();
    while (open > 0) {
        const auto waited = std::chrono::duration_cast<microseconds>(steady_clock::now() - start);
        const microseconds until = isEnough(players) ? softLimit : limit;
        if (waited >= until) {
            break;
        }
        const int done = sd_bus_process(m_bus.get(), nullptr);
        if (done < 0 || (done == 0 && sd_bus_wait(m_bus.get(), (until - waited).count()) < 0)) {
            break;
        }
    }
    std::ranges::for_each(slots, sd_bus_slot_unref);
    return players;
}

bool PlayerBus::call(const std::string &busName, const char *method) {
    return sd_bus_call_method(m_bus.get(), busName.c_str(), path, playerInterface, method, nullptr,
                              nullptr, "") >= 0;
}

bool PlayerBus::setPosition(const std::string &busName, const std::string &trackPath,
                            double position) {
    return sd_bus_call_method(m_bus.get(), busName.c_str(), path, playerInterface, "SetPosition",
                              nullptr, nullptr, "ox", trackPath.c_str(),
                              toMicroseconds(position)) >= 0;
}

bool PlayerBus::seek(const std::string &busName, double offset) {
    return sd_bus_call_method(m_bus.get(), busName.c_str(), path, playerInterface, "Seek", nullptr,
                              nullptr, "x", toMicroseconds(offset)) >= 0;
}

} // namespace perchly
