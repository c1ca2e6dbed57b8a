#include "StreamBuffer.h"

#include <algorithm>
#include <atomic>

namespace perchly {

namespace {

constexpr std::uint32_t sampleSize = sizeof(float);

/// Another program may write it at any time.
std::uint32_t readOnce(std::uint32_t &shared) {
    return std::atomic_ref(shared).load(std::memory_order_relaxed);
}

} // namespace

StreamBuffer::StreamBuffer(pw_stream *stream)
    : m_stream(stream)
    , m_buffer(pw_stream_dequeue_buffer(stream))
    , m_isStereo(m_buffer != nullptr && m_buffer->buffer->n_datas >= 2 &&
                 m_buffer->buffer->datas[0].data != nullptr &&
                 m_buffer->buffer->datas[1].data != nullptr) {
    for (std::size_t channel = 0; m_isStereo && channel < m_offsets.size(); ++channel) {
        const spa_data &data = m_buffer->buffer->datas[channel];
        const std::uint32_t offset = readOnce(data.chunk->offset) % std::max(data.maxsize, 1U);
        m_offsets[channel] = offset - offset % sampleSize;
        const std::uint32_t room = data.maxsize - m_offsets[channel];
        m_frames = std::min(m_frames, std::min(readOnce(data.chunk->size), room) / sampleSize);
    }
}

StreamBuffer::~StreamBuffer() {
    if (m_buffer != nullptr) {
        pw_stream_queue_buffer(m_stream, m_buffer);
    }
}

std::uint32_t StreamBuffer::wantedFrames() const {
    const spa_data *datas = m_buffer->buffer->datas;
    const std::uint32_t room = std::min(datas[0].maxsize, datas[1].maxsize) / sampleSize;
    const std::uint64_t wanted = m_buffer->requested;
    return wanted == 0 ? room : std::uint32_t(std::min<std::uint64_t>(room, wanted));
}

float *StreamBuffer::samples(std::size_t channel) const {
    const spa_data &data = m_buffer->buffer->datas[channel];
    return reinterpret_cast<float *>(static_cast<std::byte *>(data.data) + m_offsets[channel]);
}

void StreamBuffer::setFrames(std::uint32_t frames) {
    m_offsets = {};
    for (int channel = 0; channel < 2; ++channel) {
        spa_chunk &chunk = *m_buffer->buffer->datas[channel].chunk;
        chunk.offset = 0;
        chunk.size = frames * sampleSize;
        chunk.stride = sampleSize;
    }
}

} // namespace perchly
