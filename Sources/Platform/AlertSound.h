#pragma once

namespace perchly {

/// The desktop's alert sound.
class AlertSound {
public:
    virtual ~AlertSound() = default;

    /// Plays it without blocking; silent if nothing can play it. Main thread only.
    virtual void play() = 0;
};

} // namespace perchly
