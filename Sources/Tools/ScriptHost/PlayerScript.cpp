#include "PlayerScript.h"

#include <array>
#include <utility>

namespace perchly {

namespace {

constexpr std::array knownPlayers{
    std::pair{std::string_view("com.spotify.client"), ScriptedPlayer::Spotify},
    std::pair{std::string_view("com.apple.Music"), ScriptedPlayer::MusicApplication}};

constexpr std::array commands{
    std::pair{std::string_view("playpause"), ScriptedCommand::PlayPause},
    std::pair{std::string_view("next track"), ScriptedCommand::NextTrack},
    std::pair{std::string_view("previous track"), ScriptedCommand::PreviousTrack},
    std::pair{std::string_view("rewind"), ScriptedCommand::Rewind},
    std::pair{std::string_view("forward"), ScriptedCommand::Forward}};

template <class Table>
auto lookUp(const Table &table, std::string_view word)
    -> std::optional<typename Table::value_type::second_type> {
    for (const auto &[name, value] : table) {
        if (name == word) {
            return value;
        }
    }
    return std::nullopt;
}

bool take(std::string_view &text, std::string_view expected) {
    const bool found = text.starts_with(expected);
    text.remove_prefix(found ? expected.size() : 0);
    return found;
}

std::string_view takeUntil(std::string_view &text, char end) {
    const std::string_view taken = text.substr(0, text.find(end));
    text.remove_prefix(taken.size());
    return taken;
}

} // namespace

std::optional<PlayerScript> parsePlayerScript(std::string_view text) {
    if (!take(text, "tell application id \"")) {
        return std::nullopt;
    }
    const auto player = lookUp(knownPlayers, takeUntil(text, '"'));
    if (!player || !take(text, "\"\n")) {
        return std::nullopt;
    }
    const auto command = lookUp(commands, takeUntil(text, '\n'));
    if (!command || text != "\nreturn player state as string\nend tell") {
        return std::nullopt;
    }
    return PlayerScript{*player, *command};
}

} // namespace perchly
