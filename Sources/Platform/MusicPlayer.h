#pragma once

namespace perchly {

/// The user's music application. Nothing blocks. Main thread only.
class MusicPlayer {
public:
    virtual ~MusicPlayer() = default;

    /// Starts it or brings it to the front; does nothing without such an application.
    virtual void open() = 0;
};

} // namespace perchly
