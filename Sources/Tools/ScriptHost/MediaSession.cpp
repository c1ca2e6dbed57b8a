#include "MediaSession.h"

#include <algorithm>
#include <cmath>

namespace perchly {

using namespace std::chrono_literals;

bool MediaSession::load() {
    if (!m_bus) {
        m_bus = PlayerBus::open();
    }
    return m_bus.has_value();
}

MediaSession::Lookup MediaSession::find() {
    if (m_lookup) {
        return *m_lookup;
    }
    const auto names = load() ? m_bus->playerNames() : std::nullopt;
    if (!names) {
        return *(m_lookup = Lookup::Failed);
    }
    const auto playing = [](const std::vector<Player> &players) {
        return std::ranges::any_of(players, [](const Player &player) {
            return player.hasTrack() && player.playback == Playback::Playing;
        });
    };
    const std::vector<Player> players = m_bus->read(*names, 200ms, 1s, playing);
    const PlayerMemory before = loadMemory();
    m_memory = remember(before, players);
    if (m_memory != before) {
        storeMemory(m_memory);
    }
    const Player *owner = sessionOwner(m_memory, players);
    if (owner != nullptr) {
        m_player = *owner;
    }
    return *(m_lookup = owner != nullptr ? Lookup::Found : Lookup::NoPlayer);
}

bool MediaSession::send(int command) {
    if (find() != Lookup::Found) {
        return false;
    }
    switch (command) {
    case 0:
        return m_player.canPlay && m_bus->call(m_player.busName, "Play");
    case 1:
        return m_player.canPause && pause();
    case 4:
        return m_player.canGoNext && m_bus->call(m_player.busName, "Next");
    case 5:
        return m_player.canGoPrevious && m_bus->call(m_player.busName, "Previous");
    default:
        return false;
    }
}

bool MediaSession::pause() {
    // Before it stops playing, so that no reading in between sees it paused and not held.
    storeMemory(hold(m_memory, m_player.busName));
    const bool paused = m_bus->call(m_player.busName, "Pause");
    if (!paused) {
        storeMemory(m_memory);
    }
    return paused;
}

void MediaSession::setElapsedTime(double position) {
    constexpr double longest = 1e9; // far beyond any track, and far within 64 bits of µs
    if (find() != Lookup::Found || !m_player.canSeek || !(std::abs(position) <= longest)) {
        return;
    }
    const bool done =
        !m_player.trackPath.empty()
            ? m_bus->setPosition(m_player.busName, m_player.trackPath, position)
            : m_player.position && m_bus->seek(m_player.busName, position - *m_player.position);
    static_cast<void>(done);
}

} // namespace perchly
