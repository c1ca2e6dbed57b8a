#include "ScriptedPlayerCommand.h"

#include "MusicApplication.h"
#include "PlayerBus.h"

#include <algorithm>
#include <chrono>
#include <thread>

namespace perchly {

using namespace std::chrono_literals;

namespace {

constexpr double seekSpan = 15;
constexpr auto longestObeying = 1s; // the process has four

std::vector<Player> ask(PlayerBus &bus, const std::vector<std::string> &names) {
    return bus.read(names, 0us, 1s, [](const std::vector<Player> &) { return false; });
}

std::optional<Player> find(PlayerBus &bus, ScriptedPlayer wanted) {
    const auto names = bus.playerNames();
    if (!names || names->empty()) {
        return std::nullopt;
    }
    const auto music = wanted == ScriptedPlayer::Spotify
                           ? MusicApplication{.identifier = "spotify", .path = {}}
                           : findMusicApplication().value_or(MusicApplication{});
    const std::vector<Player> players = ask(bus, *names);
    const auto found = std::ranges::find_if(players, [&](const Player &player) {
        return player.answered && isPlayerOf(music.identifier, player.busName, player.desktopEntry);
    });
    return found == players.end() ? std::nullopt : std::optional(*found);
}

bool perform(PlayerBus &bus, const Player &player, ScriptedCommand command) {
    const bool playing = player.playback == Playback::Playing;
    switch (command) {
    case ScriptedCommand::PlayPause:
        return (playing ? player.canPause : player.canPlay) &&
               bus.call(player.busName, playing ? "Pause" : "Play");
    case ScriptedCommand::NextTrack:
        return player.canGoNext && bus.call(player.busName, "Next");
    case ScriptedCommand::PreviousTrack:
        return player.canGoPrevious && bus.call(player.busName, "Previous");
    case ScriptedCommand::Rewind:
        return player.canSeek && bus.seek(player.busName, -seekSpan);
    case ScriptedCommand::Forward:
        return player.canSeek && bus.seek(player.busName, seekSpan);
    }
    return false;
}

/// Players answer a command first and then obey it: their state is given a moment to follow.
Playback playbackAfter(PlayerBus &bus, const Player &player, ScriptedCommand command) {
    Playback now = player.playback;
    const auto end = std::chrono::steady_clock::now() + longestObeying;
    do {
        const std::vector<Player> players = ask(bus, {player.busName});
        if (!players.front().answered) {
            break;
        }
        now = players.front().playback;
        if (command != ScriptedCommand::PlayPause || now != player.playback) {
            break;
        }
        std::this_thread::sleep_for(30ms);
    } while (std::chrono::steady_clock::now() < end);
    return now;
}

} // namespace

std::optional<std::string_view> runPlayerScript(const PlayerScript &script) {
    auto bus = PlayerBus::open();
    const auto player = bus ? find(*bus, script.player) : std::nullopt;
    if (!player || !perform(*bus, *player, script.command)) {
        return std::nullopt;
    }
    switch (playbackAfter(*bus, *player, script.command)) {
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
