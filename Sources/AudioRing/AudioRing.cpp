#include "AudioRing.h"

#include <algorithm>
#include <atomic>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <limits>
#include <new>

namespace {

constexpr uint32_t capacity = 32768;
constexpr size_t cacheLine = 64;

} // namespace

/// The indices count all frames; a frame's slot is its number modulo the capacity, and the
/// fill is their difference modulo 2^32, so wrapping needs no special case.
struct AudioRingBuffer {
    float samples[size_t(capacity) * 2];
    alignas(cacheLine) std::atomic<uint32_t> readIndex;  // the consumer's
    alignas(cacheLine) std::atomic<uint32_t> writeIndex; // the producer's
    alignas(cacheLine) std::atomic<float> targetGain;    // the controller's
    alignas(cacheLine) float currentGain;                // the consumer's
};

namespace {

static_assert(std::atomic<float>::is_always_lock_free);

/// Calls `use(slot, first, count)` for each contiguous stretch of slots that holds the `frames`
/// frames from frame `index` on; `first` counts from `index`.
template <typename Use>
[[gnu::always_inline]] inline void forEachStretch(uint32_t index, size_t frames, Use use) {
    size_t first = 0;
    while (first < frames) {
        const size_t slot = (index + uint32_t(first)) % capacity;
        const size_t count = std::min(frames - first, capacity - slot);
        use(slot, first, count);
        first += count;
    }
}

// Push

struct Input {
    const float *left = nullptr;
    const float *right = nullptr;
    size_t stride = 0;
    size_t frames = 0;
};

/// Empty if the list cannot be read.
Input readInput(const AudioBufferList *list) {
    if (list == nullptr || list->mNumberBuffers == 0) {
        return {};
    }
    const AudioBuffer *buffers = list->mBuffers;
    const size_t channels = buffers[0].mNumberChannels;
    const auto *samples = static_cast<const float *>(buffers[0].mData);
    if (samples == nullptr || channels == 0) {
        return {};
    }
    const size_t frames = buffers[0].mDataByteSize / (sizeof(float) * channels);
    if (channels > 1) {
        return {samples, samples + 1, channels, frames};
    }
    if (list->mNumberBuffers == 1) {
        return {samples, samples, 1, frames};
    }
    const auto *right = static_cast<const float *>(buffers[1].mData);
    if (right == nullptr || buffers[1].mDataByteSize < sizeof(float) * frames) {
        return {};
    }
    return {samples, right, 1, frames};
}

void storeFrames(float *slots, const Input &input, size_t first, size_t count) {
    const size_t stride = input.stride;
    const float *left = input.left + first * stride;
    const float *right = input.right + first * stride;
    if (stride == 2) {
        std::memcpy(slots, left, count * 2 * sizeof(float));
    } else if (stride == 1) {
        for (size_t frame = 0; frame < count; ++frame) {
            slots[2 * frame] = left[frame];
            slots[2 * frame + 1] = right[frame];
        }
    } else {
        for (size_t frame = 0; frame < count; ++frame) {
            slots[2 * frame] = left[frame * stride];
            slots[2 * frame + 1] = right[frame * stride];
        }
    }
}

// Pulling. Always-inlined functions are compiled once for each processor variant.

[[gnu::always_inline]] inline float nextGain(float gain, float target) {
    return std::fma(target - gain, 0.004F, gain);
}

struct Multiply {
    float gain;
    [[gnu::always_inline]] float operator()(float sample) const { return sample * gain; }
};

/// The same product for a subnormal gain, as after muting. Arithmetic on subnormals is fifty times
/// slower on many processors, so this computes a whole number of the smallest steps in double
/// precision.
struct MultiplyTiny {
    double steps;

    explicit MultiplyTiny(float gain)
        : steps(std::bit_cast<uint32_t>(gain)) {}

    /// Whether every product is small enough for its bits to count steps.
    [[gnu::always_inline]] bool canScale(const float *samples, size_t count) const {
        constexpr double maxSteps = 0x1p23;
        const auto limit = std::bit_cast<uint32_t>(float(maxSteps / std::max(steps, 1.0)));
        uint32_t largest = 0;
        for (size_t sample = 0; sample < count; ++sample) {
            largest = std::max(largest, std::bit_cast<uint32_t>(samples[sample]) & ~signBit);
        }
        return largest < limit;
    }

    [[gnu::always_inline]] float operator()(float sample) const {
        constexpr double roundsToWhole = 0x1.8p52;
        const auto bits = std::bit_cast<uint32_t>(sample);
        const double magnitude = double(std::bit_cast<float>(bits & ~signBit)) * steps;
        const auto whole = uint32_t(std::bit_cast<uint64_t>(magnitude + roundsToWhole));
        return std::bit_cast<float>(whole | (bits & signBit));
    }

    static constexpr uint32_t signBit = 0x80000000U;
};

struct InterleavedOutput {
    float *samples;

    [[gnu::always_inline]] void put(size_t frame, float left, float right) const {
        samples[2 * frame] = left;
        samples[2 * frame + 1] = right;
    }
    template <typename Scale>
    [[gnu::always_inline]] void run(size_t first, const float *slots, size_t count,
                                    Scale scale) const {
        for (size_t sample = 0; sample < 2 * count; ++sample) {
            samples[2 * first + sample] = scale(slots[sample]);
        }
    }
    [[gnu::always_inline]] void silence(size_t first, size_t count) const {
        std::fill_n(samples + 2 * first, 2 * count, 0.0F);
    }
};

struct PlanarOutput {
    float *left;
    float *right;

    [[gnu::always_inline]] void put(size_t frame, float leftSample, float rightSample) const {
        left[frame] = leftSample;
        right[frame] = rightSample;
    }
    template <typename Scale>
    [[gnu::always_inline]] void run(size_t first, const float *slots, size_t count,
                                    Scale scale) const {
        for (size_t frame = 0; frame < count; ++frame) {
            put(first + frame, scale(slots[2 * frame]), scale(slots[2 * frame + 1]));
        }
    }
    [[gnu::always_inline]] void silence(size_t first, size_t count) const {
        std::fill_n(left + first, count, 0.0F);
        std::fill_n(right + first, count, 0.0F);
    }
};

/// Any other list, frame by frame.
struct AnyOutput {
    const AudioBuffer *buffers;
    size_t count;

    [[gnu::always_inline]] void put(size_t frame, float left, float right) const {
        bool isRight = false;
        for (const AudioBuffer *buffer = buffers; buffer != buffers + count; ++buffer) {
            const size_t channels = buffer->mNumberChannels;
            auto *samples = static_cast<float *>(buffer->mData);
            const size_t room = samples ? buffer->mDataByteSize / sizeof(float) : 0;
            const size_t start = frame * channels;
            for (size_t at = start; at < std::min(start + channels, room); ++at) {
                samples[at] = ((at - start) % 2 == 1) != isRight ? right : left;
            }
            isRight ^= channels % 2 == 1;
        }
    }
    template <typename Scale>
    [[gnu::always_inline]] void run(size_t first, const float *slots, size_t frames,
                                    Scale scale) const {
        for (size_t frame = 0; frame < frames; ++frame) {
            put(first + frame, scale(slots[2 * frame]), scale(slots[2 * frame + 1]));
        }
    }
    [[gnu::always_inline]] void silence(size_t first, size_t frames) const {
        for (size_t frame = 0; frame < frames; ++frame) {
            put(first + frame, 0.0F, 0.0F);
        }
    }
};

/// The frames of one pull: `held` frames of the ring from frame `index` on, then silence.
struct Portion {
    uint32_t index;
    size_t held;
    size_t frames;
    float target;
};

/// Whether the gain still changes. Near the target a step may round to no change.
[[gnu::always_inline]] inline bool moves(float gain, float target) {
    return nextGain(gain, target) != gain;
}

template <typename Output>
[[gnu::always_inline]] inline void scaleRun(Output output, size_t first, const float *slots,
                                            size_t count, float gain) {
    const bool tiny = gain < std::numeric_limits<float>::min();
    if (tiny && MultiplyTiny(gain).canScale(slots, 2 * count)) {
        output.run(first, slots, count, MultiplyTiny(gain));
    } else {
        output.run(first, slots, count, Multiply{gain});
    }
}

/// While the gain moves, each frame depends on the one before; then they are independent.
template <typename Output>
[[gnu::always_inline]] inline void pullInto(AudioRingBuffer &ring, const Portion &portion,
                                            Output output) {
    constexpr size_t framesPerCheck = 16;
    const float target = portion.target;
    float gain = ring.currentGain;
    const auto pullStretch = [&](size_t slot, size_t first, size_t count)
        __attribute__((always_inline)) {
        const float *slots = ring.samples + 2 * slot;
        size_t frame = 0;
        while (frame < count && moves(gain, target)) {
            const size_t end = std::min(frame + framesPerCheck, count);
            for (; frame < end; ++frame) {
                gain = nextGain(gain, target);
                output.put(first + frame, slots[2 * frame] * gain, slots[2 * frame + 1] * gain);
            }
        }
        scaleRun(output, first + frame, slots + 2 * frame, count - frame, gain);
    };
    forEachStretch(portion.index, portion.held, pullStretch);
    output.silence(portion.held, portion.frames - portion.held);
    for (size_t frame = portion.held; frame < portion.frames && moves(gain, target); ++frame) {
        gain = nextGain(gain, target);
    }
    ring.currentGain = gain;
}

[[gnu::always_inline]] inline void pullPortion(AudioRingBuffer &ring, const Portion &portion,
                                               const AudioBufferList &list) {
    const AudioBuffer *buffers = list.mBuffers;
    const auto holds = [&](size_t buffer, size_t channels) {
        return buffers[buffer].mNumberChannels == channels && buffers[buffer].mData != nullptr &&
               buffers[buffer].mDataByteSize / (channels * sizeof(float)) >= portion.frames;
    };
    const auto samples = [&](size_t buffer) { return static_cast<float *>(buffers[buffer].mData); };
    if (list.mNumberBuffers == 1 && holds(0, 2)) {
        pullInto(ring, portion, InterleavedOutput{samples(0)});
    } else if (list.mNumberBuffers == 2 && holds(0, 1) && holds(1, 1)) {
        pullInto(ring, portion, PlanarOutput{samples(0), samples(1)});
    } else {
        pullInto(ring, portion, AnyOutput{buffers, list.mNumberBuffers});
    }
}

// The same code for each processor variant

using Pull = void (*)(AudioRingBuffer &, const Portion &, const AudioBufferList &);

void pullAnywhere(AudioRingBuffer &ring, const Portion &portion, const AudioBufferList &list) {
    pullPortion(ring, portion, list);
}

#ifdef __x86_64__
[[gnu::target("avx2,fma")]] void pullIn256(AudioRingBuffer &ring, const Portion &portion,
                                           const AudioBufferList &list) {
    pullPortion(ring, portion, list);
}

[[gnu::target("avx2,fma,avx512f,avx512vl,avx512bw,avx512dq")]] void
pullIn512(AudioRingBuffer &ring, const Portion &portion, const AudioBufferList &list) {
    pullPortion(ring, portion, list);
}
#endif

Pull bestPull() {
#ifdef __x86_64__
    // Older processors lower their clock when they use the widest vectors.
    if (__builtin_cpu_supports("avx512vbmi2")) {
        return pullIn512;
    }
    if (__builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma")) {
        return pullIn256;
    }
#endif
    return pullAnywhere;
}

} // namespace

AudioRingBuffer *perchly_ring_create() {
    // Zeroed here, so that no audio thread is the first to touch a page.
    auto *ring = new (std::nothrow) AudioRingBuffer{};
    if (ring == nullptr) {
        return nullptr;
    }
    ring->targetGain.store(1.0F, std::memory_order_relaxed);
    ring->currentGain = 1.0F;
    return ring;
}

void perchly_ring_destroy(AudioRingBuffer *ring) {
    delete ring;
}

void perchly_ring_gain(AudioRingBuffer *ring, float gain) {
    if (!std::isnan(gain)) {
        ring->targetGain.store(std::clamp(gain, 0.0F, 1.0F), std::memory_order_relaxed);
    }
}

void perchly_ring_push(AudioRingBuffer *ring, const AudioBufferList *input) {
    const Input source = readInput(input);
    if (source.left == nullptr) {
        return;
    }
    const uint32_t read = ring->readIndex.load(std::memory_order_acquire);
    const uint32_t write = ring->writeIndex.load(std::memory_order_relaxed);
    const size_t room = capacity - (write - read);
    const size_t frames = std::min(source.frames, room);
    forEachStretch(write, frames, [&](size_t slot, size_t first, size_t count) {
        storeFrames(ring->samples + 2 * slot, source, first, count);
    });
    ring->writeIndex.store(write + uint32_t(frames), std::memory_order_release);
}

void perchly_ring_pull(AudioRingBuffer *ring, AudioBufferList *output, uint32_t frames) {
    const uint32_t read = ring->readIndex.load(std::memory_order_relaxed);
    const uint32_t write = ring->writeIndex.load(std::memory_order_acquire);
    const float target = ring->targetGain.load(std::memory_order_relaxed);
    const uint32_t held = std::min(write - read, frames);
    bestPull()(*ring, {read, held, frames, target}, *output);
    ring->readIndex.store(read + held, std::memory_order_release);
}
