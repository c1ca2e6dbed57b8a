#include "SessionOwner.h"

#include <algorithm>

namespace perchly {

namespace {

const Player *find(const std::vector<Player> &players, const std::string &busName) {
    const auto found = std::ranges::find(players, busName, &Player::busName);
    return found == players.end() ? nullptr : &*found;
}

const Player *findFirst(const PlayerMemory &memory, const std::vector<Player> &players,
                        Playback playback) {
    for (const RememberedPlayer &remembered : memory) {
        const Player *player = find(players, remembered.busName);
        if (player != nullptr && player->hasTrack() && player->playback == playback) {
            return player;
        }
    }
    return nullptr;
}

void release(PlayerMemory &memory) {
    for (RememberedPlayer &player : memory) {
        player.held = false;
    }
}

} // namespace

PlayerMemory remember(const PlayerMemory &before, const std::vector<Player> &players) {
    PlayerMemory started;
    PlayerMemory kept;
    for (const RememberedPlayer &remembered : before) {
        const Player *player = find(players, remembered.busName);
        if (player == nullptr) {
            continue;
        }
        if (!player->answered) {
            kept.push_back(remembered);
        } else if (player->isPlaying() && !remembered.playing) {
            started.push_back({player->busName, true});
        } else {
            kept.push_back(
                {player->busName, player->isPlaying(), remembered.held && player->hasTrack()});
        }
    }
    for (const Player &player : players) {
        if (std::ranges::find(before, player.busName, &RememberedPlayer::busName) == before.end()) {
            (player.isPlaying() ? started : kept).push_back({player.busName, player.isPlaying()});
        }
    }
    if (!started.empty()) {
        release(kept);
    }
    started.insert(started.end(), kept.begin(), kept.end());
    return started;
}

PlayerMemory hold(PlayerMemory memory, const std::string &busName) {
    release(memory);
    const auto found = std::ranges::find(memory, busName, &RememberedPlayer::busName);
    if (found != memory.end()) {
        found->held = true;
    }
    return memory;
}

const Player *sessionOwner(const PlayerMemory &memory, const std::vector<Player> &players) {
    const auto held = std::ranges::find(memory, true, &RememberedPlayer::held);
    const Player *owner = held != memory.end() ? find(players, held->busName) : nullptr;
    if (owner != nullptr && owner->hasTrack()) {
        return owner;
    }
    const Player *playing = findFirst(memory, players, Playback::Playing);
    return playing != nullptr ? playing : findFirst(memory, players, Playback::Paused);
}

} // namespace perchly
