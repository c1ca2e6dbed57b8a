#include "PlainRing.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace perchly {

namespace {

constexpr size_t memoryBehind = 8;

float *data(const AudioBuffer &buffer) {
    return static_cast<float *>(buffer.mData);
}

} // namespace

Buffers::Buffers(const std::vector<BufferShape> &shapes) {
    m_list.resize(shapes.size() + 1);
    list()->mNumberBuffers = uint32_t(shapes.size());
    for (size_t buffer = 0; buffer < shapes.size(); ++buffer) {
        const BufferShape &shape = shapes[buffer];
        m_samples.emplace_back(shape.bytes / sizeof(float) + memoryBehind, 0.25F);
        list()->mBuffers[buffer] = {shape.channels, shape.bytes,
                                    shape.hasData ? m_samples.back().data() : nullptr};
    }
}

AudioBufferList *Buffers::list() {
    return reinterpret_cast<AudioBufferList *>(m_list.data());
}

void Buffers::fill(Random &random, bool anyBits) {
    std::uniform_real_distribution<float> loudness(-1.1F, 1.1F);
    for (auto &samples : m_samples) {
        for (float &sample : samples) {
            sample = anyBits ? std::bit_cast<float>(random()) : loudness(random.engine);
        }
    }
}

void PlainRing::gain(float gain) {
    if (!std::isnan(gain)) {
        m_target = std::clamp(gain, 0.0F, 1.0F);
    }
}

void PlainRing::push(const AudioBufferList *list) {
    if (!list || list->mNumberBuffers == 0 || !list->mBuffers[0].mData ||
        list->mBuffers[0].mNumberChannels == 0) {
        return;
    }
    const AudioBuffer &first = list->mBuffers[0];
    const size_t channels = first.mNumberChannels;
    const size_t frames = first.mDataByteSize / 4 / channels;
    const AudioBuffer *second =
        list->mNumberBuffers > 1 && channels == 1 ? list->mBuffers + 1 : nullptr;
    if (second && (!second->mData || second->mDataByteSize < frames * 4)) {
        return;
    }
    for (size_t i = 0; i < frames && m_write - m_read < 32768; ++i, ++m_write) {
        float *slot = &m_samples[m_write % 32768 * 2];
        slot[0] = data(first)[i * channels];
        slot[1] = second ? data(*second)[i] : data(first)[i * channels + (channels > 1 ? 1 : 0)];
    }
}

void PlainRing::pull(AudioBufferList *list, uint32_t frames) {
    for (size_t f = 0; f < frames; ++f) {
        m_gain = std::fma(m_target - m_gain, 0.004F, m_gain);
        const bool held = m_read < m_write;
        const float *slot = &m_samples[m_read % 32768 * 2];
        size_t k = 0;
        for (uint32_t b = 0; b < list->mNumberBuffers; ++b) {
            const AudioBuffer &buffer = list->mBuffers[b];
            for (size_t c = 0; c < buffer.mNumberChannels; ++c, ++k) {
                const size_t position = f * buffer.mNumberChannels + c;
                if (buffer.mData && (position + 1) * 4 <= buffer.mDataByteSize) {
                    data(buffer)[position] = held ? slot[k % 2] * m_gain : 0.0F;
                }
            }
        }
        m_read += held ? 1 : 0;
    }
}

} // namespace perchly
