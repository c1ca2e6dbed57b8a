#include "PlayerBus.h"

#include <systemd/sd-bus.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <string_view>

namespace perchly {

using namespace std::chrono_literals;
using std::chrono::microseconds;
using std::chrono::steady_clock;

namespace {

constexpr std::string_view prefix = "org.mpris.MediaPlayer2.";
constexpr std::string_view repeater = "org.mpris.MediaPlayer2.playerctld";
constexpr const char *root = "org.mpris.MediaPlayer2";
constexpr const char *playerInterface = "org.mpris.MediaPlayer2.Player";
constexpr std::size_t mostPlayers = 24;
constexpr microseconds namesLimit = 1s;
constexpr microseconds commandLimit = 1500ms;

std::uint64_t bounded(microseconds span) {
    // Zero would stand for the library's own limit.
    return static_cast<std::uint64_t>(std::max(span, microseconds(1)).count());
}

/// What becomes of one question.
struct Question {
    Player *player;
    void (*take)(sd_bus_message *reply, Player &player);
    int *open;
};

int onReply(sd_bus_message *reply, void *data, sd_bus_error *) {
    auto *question = static_cast<Question *>(data);
    --*question->open;
    if (sd_bus_message_is_method_error(reply, nullptr) <= 0) {
        question->take(reply, *question->player);
    }
    return 1;
}

void takePlayer(sd_bus_message *reply, Player &player) {
    player.answered = true;
    readPlayerProperties(reply, player);
}

} // namespace

void PlayerBus::Release::operator()(sd_bus *bus) const {
    // What was sent has been answered: closing without a flush never waits for a dead bus.
    sd_bus_close(bus);
    sd_bus_unref(bus);
}

void PlayerBus::Release::operator()(sd_bus_message *message) const {
    sd_bus_message_unref(message);
}

std::optional<PlayerBus> PlayerBus::open() {
    sd_bus *bus = nullptr;
    if (sd_bus_open_user(&bus) < 0) {
        return std::nullopt;
    }
    return PlayerBus(Bus(bus));
}

PlayerBus::Message PlayerBus::newCall(sd_bus *bus, const std::string &busName,
                                      const char *interface, const char *method) {
    sd_bus_message *message = nullptr;
    if (sd_bus_message_new_method_call(bus, &message, busName.c_str(), "/org/mpris/MediaPlayer2",
                                       interface, method) >= 0) {
        sd_bus_message_set_auto_start(message, 0);
    }
    return Message(message);
}

std::optional<std::vector<std::string>> PlayerBus::playerNames() {
    sd_bus_message *question = nullptr;
    if (sd_bus_message_new_method_call(m_bus.get(), &question, "org.freedesktop.DBus",
                                       "/org/freedesktop/DBus", "org.freedesktop.DBus",
                                       "ListNames") < 0) {
        return std::nullopt;
    }
    const Message owned(question);
    sd_bus_message *answer = nullptr;
    if (sd_bus_call(m_bus.get(), question, bounded(namesLimit), nullptr, &answer) < 0) {
        return std::nullopt;
    }
    const Message ownedAnswer(answer);
    std::vector<std::string> names;
    if (sd_bus_message_enter_container(answer, SD_BUS_TYPE_ARRAY, "s") < 0) {
        return std::nullopt;
    }
    const char *name = nullptr;
    while (sd_bus_message_read_basic(answer, SD_BUS_TYPE_STRING, &name) > 0) {
        if (std::string_view(name).starts_with(prefix) && name != repeater) {
            names.emplace_back(name);
        }
    }
    std::ranges::sort(names); // the same choice among equals every time
    names.resize(std::min(names.size(), mostPlayers));
    return names;
}

std::vector<Player>
PlayerBus::read(const std::vector<std::string> &names, microseconds patience, microseconds limit,
                const std::function<bool(const std::vector<Player> &)> &isEnough) {
    std::vector<Player> players(names.size());
    std::vector<Question> questions;
    std::vector<sd_bus_slot *> slots;
    questions.reserve(2 * names.size());
    int open = 0;
    const auto ask = [&](Player &player, const char *interface, auto take) {
        const Message call =
            newCall(m_bus.get(), player.busName, "org.freedesktop.DBus.Properties", "GetAll");
        sd_bus_slot *slot = nullptr;
        questions.push_back({&player, take, &open});
        if (call && sd_bus_message_append(call.get(), "s", interface) >= 0 &&
            sd_bus_call_async(m_bus.get(), &slot, call.get(), onReply, &questions.back(),
                              bounded(limit)) >= 0) {
            slots.push_back(slot);
            ++open;
        }
    };
    for (std::size_t index = 0; index < names.size(); ++index) {
        players[index].busName = names[index];
        ask(players[index], root, readRootProperties);
        ask(players[index], playerInterface, takePlayer);
    }
    const auto start = steady_clock::now();
    while (open > 0) {
        const auto waited = std::chrono::duration_cast<microseconds>(steady_clock::now() - start);
        const bool enough = isEnough(players);
        if (waited >= limit || (enough && waited >= patience)) {
            break;
        }
        const int done = sd_bus_process(m_bus.get(), nullptr);
        const microseconds until = enough ? patience : limit;
        if (done < 0 || (done == 0 && sd_bus_wait(m_bus.get(), bounded(until - waited)) < 0)) {
            break;
        }
    }
    for (sd_bus_slot *slot : slots) {
        sd_bus_slot_unref(slot);
    }
    return players;
}

bool PlayerBus::perform(const Message &message) {
    return message &&
           sd_bus_call(m_bus.get(), message.get(), bounded(commandLimit), nullptr, nullptr) >= 0;
}

bool PlayerBus::call(const std::string &busName, const char *method) {
    return perform(newCall(m_bus.get(), busName, playerInterface, method));
}

bool PlayerBus::setPosition(const std::string &busName, const std::string &trackPath,
                            double position) {
    const Message message = newCall(m_bus.get(), busName, playerInterface, "SetPosition");
    return message &&
           sd_bus_message_append(message.get(), "ox", trackPath.c_str(),
                                 static_cast<std::int64_t>(std::llround(position * 1e6))) >= 0 &&
           perform(message);
}

bool PlayerBus::seek(const std::string &busName, double offset) {
    const Message message = newCall(m_bus.get(), busName, playerInterface, "Seek");
    return message &&
           sd_bus_message_append(message.get(), "x",
                                 static_cast<std::int64_t>(std::llround(offset * 1e6))) >= 0 &&
           perform(message);
}

} // namespace perchly
