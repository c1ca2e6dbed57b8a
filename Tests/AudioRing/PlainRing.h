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

/// One buffer of a list: how many channels, how many bytes it owns up to, and whether it has data.
struct BufferShape {
    uint32_t channels = 2;
    uint32_t bytes = 0;
    bool hasData = true;
};

/// A buffer list with memory of its own, and some of it behind the size that it owns up to.
class Buffers {
public:
    explicit Buffers(const std::vector<BufferShape> &shapes);

    AudioBufferList *list();
    float *samples(size_t buffer) { return m_samples[buffer].data(); }
    const std::vector<std::vector<float>> &all() const { return m_samples; }
    /// Any 32 bits at all, or numbers around −1…1.
    void fill(Random &random, bool anyBits);

private:
    std::vector<std::vector<float>> m_samples;
    std::vector<AudioBuffer> m_list; // a count in front, then the buffers
};

/// The ring as one loop over samples says it.
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
