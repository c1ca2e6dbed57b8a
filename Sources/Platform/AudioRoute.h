#pragma once

#include <cstdint>

namespace perchly {

/// Identifies an object of the audio system: a process or an output; 0 means none. Numbers are not
/// reused while the program runs.
using AudioObject = std::uint32_t;

/// A process that plays through a ring instead of to its own output. Destroying the route sends the
/// process back to its output. Main thread only.
class AudioRoute {
public:
    virtual ~AudioRoute() = default;

    /// Turns false when the audio system removes the route.
    [[nodiscard]] virtual bool isRunning() const = 0;
};

} // namespace perchly
