#pragma once

#include "AlertSound.h"

#include <QObject>

#include <atomic>
#include <memory>

namespace perchly {

/// The "bell" of the user's sound theme, or else the window system's bell. Connecting to a sound
/// server may block, so each sound has a thread of its own. A sound that is asked for while another
/// plays is left out: use one object for all, as libcanberra may not load its driver on two threads
/// at once.
class CanberraAlertSound : public AlertSound {
public:
    void play() override;

private:
    // The sound's thread may outlive this.
    std::shared_ptr<std::atomic<bool>> m_playing = std::make_shared<std::atomic<bool>>(false);
    std::shared_ptr<QObject> m_receiver = std::make_shared<QObject>();
};

} // namespace perchly
