#include "RouteCycle.h"

#include "AudioRing.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <ctime>
#include <span>

namespace perchly {

namespace {

constexpr std::uint32_t sampleSize = sizeof(float);

/// A list of two buffers: the second one follows the list, whose last member is the first.
struct PlanarStereo {
    AudioBufferList list;
    AudioBuffer right;
};
static_assert(offsetof(PlanarStereo, right) ==
              offsetof(AudioBufferList, mBuffers) + sizeof(AudioBuffer));

PlanarStereo planar(void *left, void *right, std::uint32_t frames) {
    const std::uint32_t size = frames * sampleSize;
    return {{2, {{1, size, left}}}, {1, size, right}};
}

AudioTimeStamp stamp(std::uint64_t frames) {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return {double(frames), std::uint64_t(now.tv_sec) * 1'000'000'000 + std::uint64_t(now.tv_nsec)};
}

void *samplesOf(const spa_data &data) {
    return static_cast<std::byte *>(data.data) + std::min(data.chunk->offset, data.maxsize);
}

std::uint32_t framesOf(const spa_data &data) {
    const std::uint32_t offset = std::min(data.chunk->offset, data.maxsize);
    return std::min(data.chunk->size, data.maxsize - offset) / sampleSize;
}

bool isStereo(const spa_buffer &buffer) {
    return buffer.n_datas >= 2 && buffer.datas[0].data != nullptr &&
           buffer.datas[1].data != nullptr;
}

} // namespace

void RouteCycle::capture() {
    pw_buffer *taken = pw_stream_dequeue_buffer(m_source);
    if (taken == nullptr) {
        return;
    }
    const spa_buffer &buffer = *taken->buffer;
    const bool isUsed = isOpen() && isStereo(buffer);
    if (isUsed) {
        const std::uint32_t frames = std::min(framesOf(buffer.datas[0]), framesOf(buffer.datas[1]));
        dropStaleFrames(frames);
        const PlanarStereo input =
            planar(samplesOf(buffer.datas[0]), samplesOf(buffer.datas[1]), frames);
        const AudioTimeStamp now = stamp(m_captured);
        m_capture(now, &input.list, now, nullptr, now);
        m_captured += frames;
    }
    pw_stream_queue_buffer(m_source, taken);
    m_hasPlayed = false;
    if (isUsed) {
        pw_stream_trigger_process(m_output);
    }
}

void RouteCycle::play() {
    pw_buffer *given = pw_stream_dequeue_buffer(m_output);
    if (given == nullptr) {
        return;
    }
    spa_buffer &buffer = *given->buffer;
    if (isStereo(buffer)) {
        std::uint32_t frames =
            std::min(buffer.datas[0].maxsize, buffer.datas[1].maxsize) / sampleSize;
        if (given->requested > 0) {
            frames = std::uint32_t(std::min<std::uint64_t>(frames, given->requested));
        }
        if (isOpen()) {
            PlanarStereo output = planar(buffer.datas[0].data, buffer.datas[1].data, frames);
            bool isSilence = false;
            m_render(isSilence, stamp(m_played), frames, &output.list);
            m_played = std::min(m_captured, m_played + frames);
            m_hasPlayed = true;
        } else {
            std::memset(buffer.datas[0].data, 0, frames * sampleSize);
            std::memset(buffer.datas[1].data, 0, frames * sampleSize);
        }
        for (spa_data &data : std::span(buffer.datas, 2)) {
            *data.chunk = {.offset = 0, .size = frames * sampleSize, .stride = sampleSize};
        }
    }
    pw_stream_queue_buffer(m_output, given);
}

/// While nothing plays, what was captured would be heard late for ever after.
void RouteCycle::dropStaleFrames(std::uint32_t captured) {
    const std::uint64_t kept = m_hasPlayed ? captured : 0;
    while (m_captured - m_played > kept) {
        const auto frames =
            std::uint32_t(std::min<std::uint64_t>(m_captured - m_played - kept, m_dropped.size()));
        PlanarStereo output = planar(m_dropped.data(), m_dropped.data(), frames);
        bool isSilence = false;
        m_render(isSilence, stamp(m_played), frames, &output.list);
        m_played += frames;
    }
}

} // namespace perchly
