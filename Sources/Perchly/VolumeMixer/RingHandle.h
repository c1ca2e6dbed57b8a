#pragma once

#include "AudioRing.h"
#include "AudioStream.h"

#include <memory>

namespace perchly {

/// Owns a ring, which goes with the last reference: those of the route and of the blocks that it
/// has handed out, whichever thread drops it.
class RingHandle : public std::enable_shared_from_this<RingHandle> {
public:
    using Allocator = AudioRingBuffer *(*)();

    /// Null when there is no memory for the ring.
    [[nodiscard]] static std::shared_ptr<RingHandle> make(Allocator allocate = perchly_ring_create);

    ~RingHandle();
    Q_DISABLE_COPY_MOVE(RingHandle)

    /// Pushes what is captured into the ring.
    [[nodiscard]] CaptureBlock captureBlock();
    /// Pulls what is to be played from the ring. It leaves the note on silence alone.
    [[nodiscard]] RenderBlock renderBlock();

    AudioRingBuffer *const pointer;

private:
    explicit RingHandle(AudioRingBuffer *ring);
};

} // namespace perchly
