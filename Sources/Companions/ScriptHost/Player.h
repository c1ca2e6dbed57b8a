#pragma once

#include <optional>
#include <string>

struct sd_bus_message;

namespace perchly {

enum class Playback { Stopped, Paused, Playing };

/// A media player's properties on the bus. Times are in seconds; absent if the player gives none or
/// an impossible one.
struct Player {
    std::string busName;
    bool answered = false;
    std::string identity; ///< its name for users; may be empty
    std::string desktopEntry;
    Playback playback = Playback::Stopped;
    std::string title;
    std::string artist;    ///< joined by ", " if there are several
    std::string trackPath; ///< an object path; empty if the track has none
    std::optional<double> position;
    std::optional<double> length;
    bool canPlay = false;
    bool canPause = false;
    bool canGoNext = false;
    bool canGoPrevious = false;
    bool canSeek = false;

    /// Whether something that can be shown is playing or paused.
    [[nodiscard]] bool hasTrack() const {
        return answered && !title.empty() && playback != Playback::Stopped;
    }
    [[nodiscard]] bool isPlaying() const { return hasTrack() && playback == Playback::Playing; }
};

/// Reads a reply to GetAll of either of a player's two interfaces.
void readProperties(sd_bus_message *reply, Player &player);

} // namespace perchly
