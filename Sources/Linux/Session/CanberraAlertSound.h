#pragma once

#include "AlertSound.h"

#include <QObject>

#include <atomic>
#include <memory>

namespace perchly {

/// The "bell" of the user's sound theme, or else the window system's bell. Connecting to a sound
/// server may block, so each sound has its own thread. Requests while a sound plays are ignored.
/// Use one object for all sounds, as libcanberra must not load its driver on two threads at once.
class CanberraAlertSound : public AlertSound {
public:
    void play() override;

private:
    // Shared with the sound's thread, which may outlive this.
    std::shared_ptr<std::atomic<bool>> m_playing = std::make_shared<std::atomic<bool>>(false);
    std::shared_ptr<QObject> m_receiver = std::make_shared<QObject>();
};

} // namespace perchly
