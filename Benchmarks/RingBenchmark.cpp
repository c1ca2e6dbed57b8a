#include "AudioRing.h"

#include <spa/utils/ringbuffer.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <limits>
#include <memory>
#include <vector>

/// Times a push and a pull, and other ways to copy and scale the same frames.
namespace {

constexpr uint32_t frames = 512;
constexpr size_t samples = size_t(2) * frames;
constexpr uint32_t capacity = 32768;

struct alignas(64) Block : std::array<float, samples> {};

struct Row {
    const char *name;
    double best = std::numeric_limits<double>::max();
};

/// Keeps the compiler from dropping work whose result is unused.
void written(const void *memory) {
    asm volatile("" : : "r"(memory) : "memory");
}

template <typename Work>
double nanoseconds(Work work) {
    constexpr int calls = 2000;
    const auto start = std::chrono::steady_clock::now();
    for (int call = 0; call < calls; ++call) {
        work();
    }
    const std::chrono::duration<double, std::nano> taken = std::chrono::steady_clock::now() - start;
    return taken.count() / calls;
}

// PipeWire's ring with our gain

#ifdef __x86_64__
[[gnu::target("fma")]]
#endif
float chain(float gain, float target) {
    for (uint32_t frame = 0; frame < frames; ++frame) {
        gain = std::fma(target - gain, 0.004F, gain);
    }
    return gain;
}

#ifdef __x86_64__
[[gnu::target("fma")]]
#endif
float scale(float *out, float gain, float target) {
    for (uint32_t frame = 0; frame < frames; ++frame) {
        gain = std::fma(target - gain, 0.004F, gain);
        out[2 * frame] *= gain;
        out[2 * frame + 1] *= gain;
    }
    return gain;
}

class SpaRing {
public:
    SpaRing() { spa_ringbuffer_init(&m_ring); }

    void carry(const Block &in, Block &out) {
        uint32_t index = 0;
        spa_ringbuffer_get_write_index(&m_ring, &index);
        spa_ringbuffer_write_data(&m_ring, m_memory.data(), size, index % size, in.data(),
                                  sizeof in);
        spa_ringbuffer_write_update(&m_ring, int32_t(index + sizeof in));
        spa_ringbuffer_get_read_index(&m_ring, &index);
        spa_ringbuffer_read_data(&m_ring, m_memory.data(), size, index % size, out.data(),
                                 sizeof out);
        spa_ringbuffer_read_update(&m_ring, int32_t(index + sizeof out));
    }

private:
    static constexpr uint32_t size = capacity * 8;
    spa_ringbuffer m_ring{};
    std::vector<char> m_memory = std::vector<char>(size);
};

// One copy in each direction

class OurRing {
public:
    enum class Layout : uint8_t { Stereo, Planar, ThreeBuffers };

    OurRing(Layout layout, float gain, Block &in, Block &out)
        : m_layout(layout) {
        perchly_ring_gain(m_ring, gain);
        for (int call = 0; call < 200; ++call) {
            carry(in, out);
        }
    }
    ~OurRing() { perchly_ring_destroy(m_ring); }
    OurRing(const OurRing &) = delete;
    OurRing &operator=(const OurRing &) = delete;

    void gain(float gain) { perchly_ring_gain(m_ring, gain); }

    void carry(Block &in, Block &out) {
        List from = list(in);
        List to = list(out);
        perchly_ring_push(m_ring, &from.list);
        perchly_ring_pull(m_ring, &to.list, frames);
    }

private:
    union List {
        AudioBufferList list;
        std::array<AudioBuffer, 4> room;
    };

    List list(Block &block) const {
        List result{};
        const bool stereo = m_layout == Layout::Stereo;
        result.list.mNumberBuffers = stereo ? 1 : m_layout == Layout::Planar ? 2 : 3;
        AudioBuffer *buffers = result.list.mBuffers;
        buffers[0] = {stereo ? 2U : 1U, (stereo ? 8U : 4U) * frames, block.data()};
        if (!stereo) {
            buffers[1] = {1, 4 * frames, block.data() + frames};
        }
        return result;
    }

    Layout m_layout;
    AudioRingBuffer *m_ring = perchly_ring_create();
};

} // namespace

int main() {
    auto in = std::make_unique<Block>();
    auto out = std::make_unique<Block>();
    auto between = std::make_unique<Block>();
    for (size_t sample = 0; sample < samples; ++sample) {
        (*in)[sample] = std::sin(float(sample) / 20);
    }
    using Layout = OurRing::Layout;
    OurRing whole(Layout::Stereo, 1, *in, *out);
    OurRing half(Layout::Stereo, 0.5F, *in, *out);
    OurRing muted(Layout::Stereo, 0, *in, *out);
    OurRing planarHalf(Layout::Planar, 0.5F, *in, *out);
    OurRing otherHalf(Layout::ThreeBuffers, 0.5F, *in, *out);
    OurRing moving(Layout::Stereo, 1, *in, *out);
    OurRing planarMoving(Layout::Planar, 1, *in, *out);
    SpaRing spa;

    std::array rows{Row{"two plain copies"},
                    Row{"spa_ringbuffer, no gain"},
                    Row{"perchly_ring, stereo, gain 1"},
                    Row{"perchly_ring, stereo, gain 0.5 settled"},
                    Row{"perchly_ring, stereo, muted"},
                    Row{"perchly_ring, two mono buffers, gain 0.5 settled"},
                    Row{"perchly_ring, another layout, gain 0.5 settled"},
                    Row{"the gain chain alone"},
                    Row{"spa_ringbuffer, then the gain of each frame"},
                    Row{"perchly_ring, stereo, gain moving"},
                    Row{"perchly_ring, two mono buffers, gain moving"}};
    float gain = 1;
    float target = 1;
    for (int round = 0; round < 60; ++round) {
        size_t next = 0;
        const auto record = [&](auto work) {
            Row &row = rows[next++];
            row.best = std::min(row.best, nanoseconds([&] {
                                    written(in->data());
                                    work();
                                    written(out->data());
                                }));
        };
        // The target changes before the gain reaches it.
        const auto turn = [&](OurRing &ring) {
            target = 1 - target;
            ring.gain(target);
            ring.carry(*in, *out);
        };
        record([&] {
            std::memcpy(between->data(), in->data(), sizeof(Block));
            written(between->data());
            std::memcpy(out->data(), between->data(), sizeof(Block));
        });
        record([&] { spa.carry(*in, *out); });
        for (OurRing *ring : {&whole, &half, &muted, &planarHalf, &otherHalf}) {
            record([&] { ring->carry(*in, *out); });
        }
        record([&] {
            target = 1 - target;
            gain = chain(gain, target);
        });
        record([&] {
            target = 1 - target;
            spa.carry(*in, *out);
            gain = scale(out->data(), gain, target);
        });
        record([&] { turn(moving); });
        record([&] { turn(planarMoving); });
    }
    std::printf("ring: %u frames in and out, best of 60 rounds\n", frames);
    for (const Row &row : rows) {
        std::printf("  %-50s %7.1f ns, %.3f ns a frame\n", row.name, row.best, row.best / frames);
    }
    return gain < 0;
}
