#pragma once

#include "AudioSystem.h"
#include "RingHandle.h"

#include <memory>
#include <optional>

namespace perchly {

/// One live route: a process' output, captured and silenced, goes through a ring at the wanted gain
/// to the default output device. A route runs from its making until stop(); levels and mute act
/// through the ring's gain only. Main thread only.
class TapPlayback {
public:
    /// Builds and starts the route, or throws a MixerError and leaves the process' output as it
    /// was. The audio system outlives the route.
    TapPlayback(AudioSystem &system, AudioObject process,
                RingHandle::Allocator allocateRing = perchly_ring_create);
    Q_DISABLE_COPY_MOVE(TapPlayback)

    /// Gives the process its own output back. Harmless when that has been done; the owner does it
    /// before it drops the route.
    void stop();

    /// Whether the engine runs: it may stop without being told to.
    [[nodiscard]] bool isRunning() const;

    /// For perchly_ring_gain(). It lives as long as the route.
    [[nodiscard]] AudioRingBuffer *ring() const { return m_ring->pointer; }

private:
    void build(AudioObject process);
    [[nodiscard]] StreamFormat tapProcess(AudioObject process);
    void connectEngine(const StreamFormat &format);

    std::unique_ptr<AudioRoute> m_route;
    AudioEngine &m_engine;
    QUuid m_tapUuid;
    AudioObject m_tap = 0;
    AudioObject m_device = 0;
    std::optional<IoProcId> m_io;
    std::unique_ptr<AudioSourceNode> m_source;
    std::shared_ptr<RingHandle> m_ring;
};

} // namespace perchly
