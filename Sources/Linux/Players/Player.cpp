#include "Player.h"

#include "BusValue.h"

#include <systemd/sd-bus.h>

#include <algorithm>
#include <cmath>

namespace perchly {

namespace {

constexpr std::size_t maxTextBytes = 2048;
constexpr double microsecondsPerSecond = 1e6;

bool isContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

/// What of the text is not shown as it is.
struct Oddity {
    std::size_t length = 0; ///< in bytes; 0 for an ordinary character
    bool isSpace = false;   ///< stands for a space, not for nothing
};

Oddity oddityAt(std::string_view text) {
    const auto at = [&](std::size_t index) {
        return index < text.size() ? static_cast<unsigned char>(text[index]) : 0U;
    };
    const unsigned third = (at(0) << 16U) | (at(1) << 8U) | at(2);
    if (at(0) < 0x20 || at(0) == 0x7F) {
        return {1, true};
    }
    if (at(0) == 0xC2 && at(1) >= 0x80 && at(1) <= 0xA0) { // up to the no-break space
        return {2, true};
    }
    if (third == 0xE280A8 || third == 0xE280A9) { // line and paragraph separators
        return {3, true};
    }
    const bool turns = third == 0xE2808E || third == 0xE2808F ||
                       (third >= 0xE280AA && third <= 0xE280AE) ||
                       (third >= 0xE281A6 && third <= 0xE281A9);
    const bool invisible = third == 0xE2808B || third == 0xE281A0 || third == 0xEFBBBF;
    return {turns || invisible ? std::size_t(3) : 0, false};
}

Playback playbackOf(const std::string &status) {
    if (status == "Playing") {
        return Playback::Playing;
    }
    return status == "Paused" ? Playback::Paused : Playback::Stopped;
}

std::string artistOf(const BusValue &value) {
    if (const auto *artists = std::get_if<std::vector<std::string>>(&value)) {
        std::string joined;
        for (const std::string &artist : *artists) {
            if (!artist.empty()) {
                joined.append(joined.empty() ? "" : ", ").append(cleanText(artist));
            }
        }
        return cleanText(joined);
    }
    return cleanText(textOf(value)); // some players send one text where a list belongs
}

std::optional<double> secondsOf(const BusValue &value) {
    const auto number = numberOf(value);
    return number && std::isfinite(*number) ? std::optional(*number / microsecondsPerSecond)
                                            : std::nullopt;
}

bool isTrack(const std::string &path) {
    return sd_bus_object_path_is_valid(path.c_str()) > 0 &&
           path != "/org/mpris/MediaPlayer2/TrackList/NoTrack";
}

bool readMetadataEntry(std::string_view key, sd_bus_message *message, Player &player) {
    BusValue value;
    if (key == "xesam:title" && readVariant(message, value)) {
        player.title = cleanText(textOf(value));
    } else if (key == "xesam:artist" && readVariant(message, value)) {
        player.artist = artistOf(value);
    } else if (key == "mpris:trackid" && readVariant(message, value)) {
        player.trackPath = isTrack(textOf(value)) ? textOf(value) : std::string();
    } else if (key == "mpris:length" && readVariant(message, value)) {
        const auto length = secondsOf(value);
        player.length = length && *length > 0 ? length : std::nullopt;
    } else {
        return false;
    }
    return true;
}

/// A player may take off what it has not sounded yet, and is then a little before the start.
std::optional<double> startingAtZero(double position) {
    return position > -1 ? std::optional(std::max(position, 0.0)) : std::nullopt;
}

bool readPlayerEntry(std::string_view key, sd_bus_message *message, Player &player) {
    if (key == "Metadata") {
        return visitVariantEntries(message, [&](std::string_view name, sd_bus_message *entry) {
            return readMetadataEntry(name, entry, player);
        });
    }
    BusValue value;
    if (key == "PlaybackStatus" && readVariant(message, value)) {
        player.playback = playbackOf(textOf(value));
    } else if (key == "Position" && readVariant(message, value)) {
        const auto position = secondsOf(value);
        player.position = position ? startingAtZero(*position) : std::nullopt;
    } else if (key == "CanPlay" && readVariant(message, value)) {
        player.canPlay = isTrue(value);
    } else if (key == "CanPause" && readVariant(message, value)) {
        player.canPause = isTrue(value);
    } else if (key == "CanGoNext" && readVariant(message, value)) {
        player.canGoNext = isTrue(value);
    } else if (key == "CanGoPrevious" && readVariant(message, value)) {
        player.canGoPrevious = isTrue(value);
    } else if (key == "CanSeek" && readVariant(message, value)) {
        player.canSeek = isTrue(value);
    } else {
        return false;
    }
    return true;
}

} // namespace

void readPlayerProperties(sd_bus_message *reply, Player &player) {
    visitEntries(reply, [&](std::string_view key, sd_bus_message *message) {
        return readPlayerEntry(key, message, player);
    });
}

void readRootProperties(sd_bus_message *reply, Player &player) {
    visitEntries(reply, [&](std::string_view key, sd_bus_message *message) {
        BusValue value;
        if (key == "Identity" && readVariant(message, value)) {
            player.identity = cleanText(textOf(value));
        } else if (key == "DesktopEntry" && readVariant(message, value)) {
            player.desktopEntry = cleanText(textOf(value));
        } else {
            return false;
        }
        return true;
    });
}

std::string cleanText(std::string_view text) {
    std::string clean;
    clean.reserve(std::min(text.size(), maxTextBytes));
    while (!text.empty() && clean.size() <= maxTextBytes) {
        const Oddity oddity = oddityAt(text);
        if (oddity.length == 0) {
            clean.push_back(text.front());
        } else if (oddity.isSpace && !clean.empty() && clean.back() != ' ') {
            clean.push_back(' ');
        }
        text.remove_prefix(std::max(oddity.length, std::size_t(1)));
    }
    if (clean.size() > maxTextBytes) {
        std::size_t end = maxTextBytes;
        while (end > 0 && isContinuation(clean[end])) {
            --end;
        }
        clean.resize(end);
    }
    const std::size_t first = clean.find_first_not_of(' ');
    if (first == std::string::npos) {
        return {};
    }
    return clean.substr(first, clean.find_last_not_of(' ') - first + 1);
}

} // namespace perchly
