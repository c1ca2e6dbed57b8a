#pragma once

#include "AudioRing.h"
#include "AudioSystem.h"

namespace perchly {

/// A process that plays through a ring at the wanted gain. Main thread only.
class MixerRoute {
public:
    /// Starts at gain 1. Null if that is not possible; the error then says why, for the user. The
    /// audio system outlives the route.
    [[nodiscard]] static std::unique_ptr<MixerRoute> make(AudioSystem &system, AudioObject process,
                                                          QString &error);

    /// Sends the process back to its own output. Can be called again.
    void stop() { m_route.reset(); }
    [[nodiscard]] bool isRunning() const { return m_route && m_route->isRunning(); }
    void setGain(float gain) { perchly_ring_gain(m_ring.get(), gain); }

private:
    std::shared_ptr<AudioRingBuffer> m_ring;
    std::unique_ptr<AudioRoute> m_route;
};

} // namespace perchly
