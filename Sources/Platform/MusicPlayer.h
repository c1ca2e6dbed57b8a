#pragma once

namespace perchly {

/// The user's own application for music. Nothing blocks. Main thread only.
class MusicPlayer {
public:
    virtual ~MusicPlayer() = default;

    /// Starts it or brings it to the front; without one, nothing happens.
    virtual void open() = 0;
};

} // namespace perchly
