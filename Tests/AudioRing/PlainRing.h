#pragma once

#include "AudioRing.h"

#include <memory>
#include <random>
#include <vector>

namespace perchly {

struct RingDeleter {
    void operator()(AudioRingBuffer *ring) const { perchly_ring_destroy(ring); }
};
using Ring = std::unique_ptr<AudioRingBuffer, RingDeleter>;

struct Random {
    std::mt19937 engine;
    uint32_t operator()() { return uint32_t(engine()); }
};

/// One buffer of a list: its channels, the size that it declares, and whether it has data.
struct BufferShape {
    uint32_t channels = 2;
    uint32_t bytes = 0;
    bool hasData = true;
};

/// A buffer list and its memory, which extends beyond the declared sizes.
class Buffers {
public:
    explicit Buffers(const std::vector<BufferShape> &shapes);

    AudioBufferList *list();
    float *samples(size_t buffer) { return m_samples[buffer].data(); }
    const std::vector<std::vector<float>> &all() const { return m_samples; }
    /// Arbitrary 32-bit patterns, or numbers around −1…1.
    void fill(Random &random, bool anyBits);

private:
    std::vector<std::vector<float>> m_samples;
    std::vector<AudioBuffer> m_list; // a count in front, then the buffers
};

/// A reference implementation of the ring: one loop over samples.
class PlainRing {
public:
    void gain(float gain);
    void push(const AudioBufferList *list);
    void pull(AudioBufferList *list, uint32_t frames);

private:
    std::vector<float> m_samples = std::vector<float>(size_t(2) * 32768);
    uint64_t m_read = 0;
    uint64_t m_write = 0;
    float m_target = 1;
    float m_gain = 1;
};

} // namespace perchly
