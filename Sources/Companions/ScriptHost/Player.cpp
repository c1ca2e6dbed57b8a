#include "Player.h"

#include <systemd/sd-bus.h>

#include <cmath>
#include <cstdint>
#include <string_view>

namespace perchly {

namespace {

/// Reads the next variant if it holds that type; otherwise leaves it.
template <class T>
bool take(sd_bus_message *message, const char *type, T &value) {
    return sd_bus_message_read(message, "v", type, &value) > 0;
}

bool takeText(sd_bus_message *message, std::string &text) {
    const char *read = nullptr;
    if (!take(message, "s", read) && !take(message, "o", read)) {
        return false;
    }
    text = read;
    return true;
}

/// Some players send a single text instead of a list.
bool takeTexts(sd_bus_message *message, std::string &text) {
    if (sd_bus_message_enter_container(message, 'v', "as") <= 0) {
        return takeText(message, text);
    }
    sd_bus_message_enter_container(message, 'a', "s");
    const char *item = nullptr;
    while (sd_bus_message_read_basic(message, 's', &item) > 0) {
        text.append(text.empty() || *item == '\0' ? "" : ", ").append(item);
    }
    sd_bus_message_exit_container(message);
    return sd_bus_message_exit_container(message) >= 0;
}

/// In microseconds, of any of the integer types that players use.
bool takeTime(sd_bus_message *message, std::optional<double> &seconds) {
    double number = 0;
    std::int64_t whole = 0;
    std::uint64_t natural = 0;
    if (take(message, "x", whole)) {
        number = static_cast<double>(whole);
    } else if (take(message, "t", natural)) {
        number = static_cast<double>(natural);
    } else if (!take(message, "d", number)) {
        return false;
    }
    seconds = std::isfinite(number) ? std::optional(number / 1e6) : std::nullopt;
    return true;
}

bool takeFlag(sd_bus_message *message, bool &flag) {
    int number = 0;
    const bool taken = take(message, "b", number);
    flag = number != 0;
    return taken;
}

bool takePlayback(sd_bus_message *message, Playback &playback) {
    std::string status;
    const bool taken = takeText(message, status);
    playback = status == "Playing"  ? Playback::Playing
               : status == "Paused" ? Playback::Paused
                                    : Playback::Stopped;
    return taken;
}

bool takeMetadata(sd_bus_message *message, Player &player) {
    if (sd_bus_message_enter_container(message, 'v', "a{sv}") <= 0) {
        return false;
    }
    readProperties(message, player);
    return sd_bus_message_exit_container(message) >= 0;
}

bool takeProperty(std::string_view name, sd_bus_message *message, Player &player) {
    return name == "Identity"         ? takeText(message, player.identity)
           : name == "DesktopEntry"   ? takeText(message, player.desktopEntry)
           : name == "PlaybackStatus" ? takePlayback(message, player.playback)
           : name == "Position"       ? takeTime(message, player.position)
           : name == "CanPlay"        ? takeFlag(message, player.canPlay)
           : name == "CanPause"       ? takeFlag(message, player.canPause)
           : name == "CanGoNext"      ? takeFlag(message, player.canGoNext)
           : name == "CanGoPrevious"  ? takeFlag(message, player.canGoPrevious)
           : name == "CanSeek"        ? takeFlag(message, player.canSeek)
           : name == "Metadata"       ? takeMetadata(message, player)
           : name == "xesam:title"    ? takeText(message, player.title)
           : name == "xesam:artist"   ? takeTexts(message, player.artist)
           : name == "mpris:trackid"  ? takeText(message, player.trackPath)
           : name == "mpris:length"   ? takeTime(message, player.length)
                                      : false;
}

} // namespace

void readProperties(sd_bus_message *message, Player &player) {
    if (sd_bus_message_enter_container(message, 'a', "{sv}") <= 0) {
        return;
    }
    const char *name = nullptr;
    while (sd_bus_message_enter_container(message, 'e', "sv") > 0 &&
           sd_bus_message_read_basic(message, 's', &name) > 0) {
        if (!takeProperty(name, message, player)) {
            sd_bus_message_skip(message, "v");
        }
        sd_bus_message_exit_container(message);
    }
    sd_bus_message_exit_container(message);
    // A player may subtract its buffered sound, and so report a time just before the start.
    if (player.position && *player.position < 0) {
        player.position = *player.position > -1 ? std::optional(0.0) : std::nullopt;
    }
    if (player.length && *player.length <= 0) {
        player.length.reset();
    }
    if (player.trackPath == "/org/mpris/MediaPlayer2/TrackList/NoTrack" ||
        sd_bus_object_path_is_valid(player.trackPath.c_str()) <= 0) {
        player.trackPath.clear();
    }
}

} // namespace perchly
