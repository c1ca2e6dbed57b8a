#include "MediaSession.h"

#include <algorithm>
#include <cmath>

namespace perchly {

using namespace std::chrono_literals;

bool MediaSession::load() {
    if (!m_bus) {
        m_bus = PlayerBus::open();
        m_names = m_bus ? m_bus->playerNames() : std::nullopt;
    }
    return m_names.has_value();
}

const Player *MediaSession::find() {
    if (!load()) {
        return nullptr;
    }
    if (!m_players) {
        m_players = m_bus->read(*m_names, 200ms, 1s, [](const std::vector<Player> &players) {
            return std::ranges::any_of(players, &Player::isPlaying);
        });
        const PlayerMemory before = loadMemory();
        m_memory = remember(before, *m_players);
        if (m_memory != before) {
            storeMemory(m_memory);
        }
    }
    return sessionOwner(m_memory, *m_players);
}

bool MediaSession::send(int command) {
    const Player *player = find();
    if (player == nullptr) {
        return false;
    }
    switch (command) {
    case 0:
        return player->canPlay && m_bus->call(player->busName, "Play");
    case 1:
        return player->canPause && pause(*player);
    case 4:
        return player->canGoNext && m_bus->call(player->busName, "Next");
    case 5:
        return player->canGoPrevious && m_bus->call(player->busName, "Previous");
    default:
        return false;
    }
}

bool MediaSession::pause(const Player &player) {
    // Store this before the player stops, so that no reading sees it paused but not held.
    storeMemory(hold(m_memory, player.busName));
    const bool paused = m_bus->call(player.busName, "Pause");
    if (!paused) {
        storeMemory(m_memory);
    }
    return paused;
}

void MediaSession::setElapsedTime(double position) {
    constexpr double maxPosition = 1e9; // far above any track's length, and within 64 bits of µs
    const Player *player = find();
    if (player == nullptr || !player->canSeek || !(std::abs(position) <= maxPosition)) {
        return;
    }
    if (!player->trackPath.empty()) {
        static_cast<void>(m_bus->setPosition(player->busName, player->trackPath, position));
    } else if (player->position) {
        static_cast<void>(m_bus->seek(player->busName, position - *player->position));
    }
}

} // namespace perchly
