#include "RouteCycle.h"

#include "AudioRing.h"
#include "LoopEvent.h"
#include "StreamBuffer.h"

#include <algorithm>
#include <cstddef>

namespace perchly {

namespace {

/// An AudioBufferList with two buffers: it contains the first, and the second follows it.
struct PlanarStereo {
    AudioBufferList list;
    AudioBuffer right;
};
static_assert(offsetof(PlanarStereo, right) ==
              offsetof(AudioBufferList, mBuffers) + sizeof(AudioBuffer));

PlanarStereo planar(float *left, float *right, std::uint32_t frames) {
    const auto size = std::uint32_t(frames * sizeof(float));
    return {{2, {{1, size, left}}}, {1, size, right}};
}

} // namespace

void RouteCycle::capture(pw_stream *source) {
    {
        const StreamBuffer buffer(source);
        if (!buffer || !isOpen()) {
            return;
        }
        const std::uint32_t frames = buffer.frames();
        dropStaleFrames(frames);
        const PlanarStereo input = planar(buffer.samples(0), buffer.samples(1), frames);
        perchly_ring_push(m_ring.get(), &input.list);
        m_captured += frames;
    }
    m_hasPlayed = false;
    if (m_outputRuns.load(std::memory_order_acquire)) {
        pw_stream_trigger_process(m_output);
    }
}

void RouteCycle::play(pw_stream *output) {
    StreamBuffer buffer(output);
    if (!buffer) {
        return;
    }
    const std::uint32_t frames = buffer.wantedFrames();
    buffer.setFrames(frames);
    if (!isOpen()) {
        std::fill_n(buffer.samples(0), frames, 0.0F);
        std::fill_n(buffer.samples(1), frames, 0.0F);
        return;
    }
    PlanarStereo list = planar(buffer.samples(0), buffer.samples(1), frames);
    perchly_ring_pull(m_ring.get(), &list.list, frames);
    m_played = std::min(m_captured, m_played + frames);
    m_hasPlayed = true;
    if (++m_cycles == 2) {
        m_running->signal();
    }
}

/// Drops frames captured while nothing played, as they would delay all later ones.
void RouteCycle::dropStaleFrames(std::uint32_t captured) {
    const std::uint64_t kept = m_hasPlayed ? captured : 0;
    while (m_captured - m_played > kept) {
        const auto frames =
            std::uint32_t(std::min<std::uint64_t>(m_captured - m_played - kept, m_dropped.size()));
        PlanarStereo list = planar(m_dropped.data(), m_dropped.data(), frames);
        perchly_ring_pull(m_ring.get(), &list.list, frames);
        m_played += frames;
    }
}

} // namespace perchly
