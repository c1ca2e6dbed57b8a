#include "PlayerScript.h"

#include "MusicApplication.h"
#include "PlayerBus.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <thread>

namespace perchly {

using namespace std::chrono_literals;

namespace {

constexpr double seekSpan = 15;
constexpr auto obeyTimeout = 1s; // the process has four seconds

constexpr std::array<std::string_view, 2> players{"com.spotify.client", "com.apple.Music"};
constexpr std::array<std::string_view, 5> words{"playpause", "next track", "previous track",
                                                "rewind", "forward"};

struct Request {
    std::string_view player;
    std::string_view word;
};

/// Compares whole texts, so that the two inserted words can add nothing else.
std::optional<Request> parse(std::string_view script) {
    for (const std::string_view player : players) {
        for (const std::string_view word : words) {
            std::string text("tell application id \"");
            text.append(player).append("\"\n").append(word);
            text.append("\nreturn player state as string\nend tell");
            if (text == script) {
                return Request{player, word};
            }
        }
    }
    return std::nullopt;
}

std::vector<Player> ask(PlayerBus &bus, const std::vector<std::string> &names) {
    return bus.read(names, 0us, 1s, [](const std::vector<Player> &) { return false; });
}

std::optional<Player> find(PlayerBus &bus, std::string_view wanted) {
    const auto names = bus.playerNames();
    if (!names || names->empty()) {
        return std::nullopt;
    }
    const auto identifier = wanted == "com.spotify.client"
                                ? "spotify"
                                : findMusicApplication().value_or(MusicApplication()).identifier;
    const std::vector<Player> all = ask(bus, *names);
    const auto found = std::ranges::find_if(all, [&](const Player &player) {
        return player.answered && isPlayerOf(identifier, player.busName, player.desktopEntry);
    });
    return found == all.end() ? std::nullopt : std::optional(*found);
}

bool perform(PlayerBus &bus, const Player &player, std::string_view word) {
    if (word == "playpause") {
        const bool playing = player.playback == Playback::Playing;
        return (playing ? player.canPause : player.canPlay) &&
               bus.call(player.busName, playing ? "Pause" : "Play");
    }
    if (word == "next track") {
        return player.canGoNext && bus.call(player.busName, "Next");
    }
    if (word == "previous track") {
        return player.canGoPrevious && bus.call(player.busName, "Previous");
    }
    return player.canSeek && bus.seek(player.busName, word == "rewind" ? -seekSpan : seekSpan);
}

/// Players answer a command before they carry it out: wait a moment for their state to follow.
Playback playbackAfter(PlayerBus &bus, const Player &player, std::string_view word) {
    Playback now = player.playback;
    const auto end = std::chrono::steady_clock::now() + obeyTimeout;
    do {
        const Player after = ask(bus, {player.busName}).front();
        if (!after.answered) {
            break;
        }
        now = after.playback;
        if (word != "playpause" || now != player.playback) {
            break;
        }
        std::this_thread::sleep_for(30ms);
    } while (std::chrono::steady_clock::now() < end);
    return now;
}

} // namespace

std::optional<std::string_view> runPlayerScript(std::string_view script) {
    const auto request = parse(script);
    auto bus = request ? PlayerBus::open() : std::nullopt;
    const auto player = bus ? find(*bus, request->player) : std::nullopt;
    if (!player) {
        return std::nullopt;
    }
    if (!perform(*bus, *player, request->word)) {
        return "refused";
    }
    switch (playbackAfter(*bus, *player, request->word)) {
    case Playback::Playing:
        return "playing";
    case Playback::Paused:
        return "paused";
    case Playback::Stopped:
        break;
    }
    return "stopped";
}

} // namespace perchly
