#pragma once

#include <QString>

#include <functional>

namespace perchly {

/// The user's music application. Nothing blocks. Main thread only.
class MusicPlayer {
public:
    /// Called once on the main thread with an empty string, or the error. Not called if the player
    /// is destroyed first.
    using Completion = std::function<void(const QString &error)>;

    virtual ~MusicPlayer() = default;

    /// Starts it or brings it to the front.
    virtual void open(Completion completion) = 0;
};

} // namespace perchly
