#include "MusicApplication.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace perchly {

namespace {

constexpr std::array<std::string_view, 7> otherTrades{
    "Video", "TV", "Mixer", "Midi", "Recorder", "Sequencer", "AudioVideoEditing"};

template <class Predicate>
bool anyOf(std::string_view list, char separator, Predicate predicate) {
    while (!list.empty()) {
        const std::string_view item = list.substr(0, list.find(separator));
        if (!item.empty() && predicate(item)) {
            return true;
        }
        list.remove_prefix(std::min(item.size() + 1, list.size()));
    }
    return false;
}

std::string lowered(std::string_view text) {
    std::string lower(text);
    std::ranges::transform(lower, lower.begin(), [](char character) {
        return static_cast<char>(std::tolower(static_cast<unsigned char>(character)));
    });
    return lower;
}

std::string lastWord(const std::string &name) {
    return name.substr(name.rfind('.') + 1);
}

} // namespace

bool isMusicPlayer(std::string_view categories, std::string_view types) {
    const bool plays =
        anyOf(categories, ';', [](std::string_view category) { return category == "Player"; }) ||
        anyOf(types, ';', [](std::string_view type) { return type.starts_with("audio/"); });
    return plays && !anyOf(categories, ';', [](std::string_view category) {
               return std::ranges::find(otherTrades, category) != otherTrades.end();
           });
}

bool isPlayerOf(std::string_view identifier, std::string_view busName,
                std::string_view desktopEntry) {
    constexpr std::string_view prefix = "org.mpris.MediaPlayer2.";
    if (identifier.empty() || !busName.starts_with(prefix)) {
        return false;
    }
    std::string name = lowered(busName.substr(prefix.size()));
    name.resize(std::min(name.find(".instance"), name.size())); // one of several that run at once
    const std::string wanted = lowered(identifier);
    const std::string entry = lowered(desktopEntry);
    return entry == wanted || name == wanted || lastWord(name) == lastWord(wanted);
}

} // namespace perchly
