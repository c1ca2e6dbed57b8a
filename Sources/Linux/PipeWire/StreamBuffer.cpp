#include "StreamBuffer.h"

#include <algorithm>
#include <cstddef>

namespace perchly {

namespace {

constexpr std::uint32_t sampleSize = sizeof(float);

std::uint32_t offsetOf(const spa_data &data) {
    return std::min(data.chunk->offset, data.maxsize);
}

std::uint32_t framesOf(const spa_data &data) {
    return std::min(data.chunk->size, data.maxsize - offsetOf(data)) / sampleSize;
}

} // namespace

StreamBuffer::StreamBuffer(pw_stream *stream)
    : m_stream(stream)
    , m_buffer(pw_stream_dequeue_buffer(stream))
    , m_isStereo(m_buffer != nullptr && m_buffer->buffer->n_datas >= 2 &&
                 m_buffer->buffer->datas[0].data != nullptr &&
                 m_buffer->buffer->datas[1].data != nullptr) {}

StreamBuffer::~StreamBuffer() {
    if (m_buffer != nullptr) {
        pw_stream_queue_buffer(m_stream, m_buffer);
    }
}

std::uint32_t StreamBuffer::frames() const {
    const spa_data *datas = m_buffer->buffer->datas;
    return std::min(framesOf(datas[0]), framesOf(datas[1]));
}

std::uint32_t StreamBuffer::wantedFrames() const {
    const spa_data *datas = m_buffer->buffer->datas;
    const std::uint32_t room = std::min(datas[0].maxsize, datas[1].maxsize) / sampleSize;
    const std::uint64_t wanted = m_buffer->requested;
    return wanted == 0 ? room : std::uint32_t(std::min<std::uint64_t>(room, wanted));
}

float *StreamBuffer::samples(int channel) const {
    const spa_data &data = m_buffer->buffer->datas[channel];
    return reinterpret_cast<float *>(static_cast<std::byte *>(data.data) + offsetOf(data));
}

void StreamBuffer::setFrames(std::uint32_t frames) {
    for (int channel = 0; channel < 2; ++channel) {
        spa_chunk &chunk = *m_buffer->buffer->datas[channel].chunk;
        chunk.offset = 0;
        chunk.size = frames * sampleSize;
        chunk.stride = sampleSize;
    }
}

} // namespace perchly
