#pragma once

#include "AudioRing.h"
#include "AudioSystem.h"

namespace perchly {

/// A process that plays through a ring with an adjustable gain. Main thread only.
class MixerRoute {
public:
    /// Starts at gain 1. On failure it returns null and sets `error` to a text for the user. The
    /// audio system must outlive the route.
    [[nodiscard]] static std::unique_ptr<MixerRoute> make(AudioSystem &system, AudioObject process,
                                                          QString &error);

    /// Sends the process back to its own output. May be called repeatedly.
    void stop() { m_route.reset(); }
    [[nodiscard]] bool isRunning() const { return m_route && m_route->isRunning(); }
    void setGain(float gain) { perchly_ring_gain(m_ring.get(), gain); }

private:
    std::shared_ptr<AudioRingBuffer> m_ring;
    std::unique_ptr<AudioRoute> m_route;
};

} // namespace perchly
