#pragma once

#include "AlertSound.h"

#include <functional>
#include <memory>

namespace perchly {

/// The "bell" of the person's sound theme, or the window system's bell where it cannot be heard.
/// Connecting to a sound server may block, so each sound has a thread of its own while it is heard
/// and nothing remains afterwards. A sound that is asked for while another plays is left out: use
/// one object for all, as libcanberra may not load its driver on two threads at once.
class CanberraAlertSound : public AlertSound {
public:
    /// What to do instead, on the main thread.
    using Fallback = std::function<void()>;

    CanberraAlertSound();
    explicit CanberraAlertSound(Fallback fallback);
    ~CanberraAlertSound() override;

    void play() override;

private:
    struct State;

    std::shared_ptr<State> m_state; ///< shared with the sound's thread, which may outlive this
};

} // namespace perchly
