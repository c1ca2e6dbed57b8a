#pragma once

#include <pipewire/stream.h>

#include <cstdint>

namespace perchly {

/// Takes the next buffer of a stream and returns it when destroyed. For real-time threads.
class StreamBuffer {
public:
    explicit StreamBuffer(pw_stream *stream);
    ~StreamBuffer();
    StreamBuffer(const StreamBuffer &) = delete;
    StreamBuffer &operator=(const StreamBuffer &) = delete;

    /// Whether there is a buffer and it has two channels.
    explicit operator bool() const { return m_isStereo; }

    // Only for a buffer with two channels:

    /// The number of frames that the buffer holds, or requests.
    [[nodiscard]] std::uint32_t frames() const;
    [[nodiscard]] std::uint32_t wantedFrames() const;
    /// The first sample of channel 0 or 1.
    [[nodiscard]] float *samples(int channel) const;
    /// Marks that many frames as filled.
    void setFrames(std::uint32_t frames);

private:
    pw_stream *m_stream;
    pw_buffer *m_buffer;
    bool m_isStereo;
};

} // namespace perchly
