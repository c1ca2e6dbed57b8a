#pragma once

#include <optional>
#include <string>
#include <string_view>

struct sd_bus_message;

namespace perchly {

enum class Playback { Stopped, Paused, Playing };

/// What a media player on the bus says about itself. Texts are at most 2 KiB of UTF-8 without
/// control characters; times are in seconds and absent when the player does not tell or tells
/// nonsense.
struct Player {
    std::string busName;
    bool answered = false;
    std::string identity; ///< the name that people know it by; may be empty
    std::string desktopEntry;
    Playback playback = Playback::Stopped;
    std::string title;
    std::string artist;    ///< several are joined by ", "
    std::string trackPath; ///< an object path; empty when the track has none
    std::optional<double> position;
    std::optional<double> length;
    bool canPlay = false;
    bool canPause = false;
    bool canGoNext = false;
    bool canGoPrevious = false;
    bool canSeek = false;

    /// Something that can be shown is playing or paused.
    [[nodiscard]] bool hasTrack() const {
        return answered && !title.empty() && playback != Playback::Stopped;
    }
};

/// Takes over what a reply to GetAll for the player interface says.
void readPlayerProperties(sd_bus_message *reply, Player &player);

/// Takes over what a reply to GetAll for the root interface says: identity and desktop entry.
void readRootProperties(sd_bus_message *reply, Player &player);

/// Control characters and line breaks become spaces, those at the ends go away, and so do
/// characters that show nothing or would turn the text around them; what is over 2 KiB is cut off
/// between characters.
[[nodiscard]] std::string cleanText(std::string_view text);

} // namespace perchly
