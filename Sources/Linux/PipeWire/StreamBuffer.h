#pragma once

#include <pipewire/stream.h>

#include <cstdint>

namespace perchly {

/// The next buffer of a stream, which is returned on destruction. For real-time threads.
class StreamBuffer {
public:
    explicit StreamBuffer(pw_stream *stream);
    ~StreamBuffer();
    StreamBuffer(const StreamBuffer &) = delete;
    StreamBuffer &operator=(const StreamBuffer &) = delete;

    /// Whether there is one, with two channels.
    explicit operator bool() const { return m_isStereo; }

    // Only with two channels:

    /// How many frames it holds, and how many it asks for.
    [[nodiscard]] std::uint32_t frames() const;
    [[nodiscard]] std::uint32_t wantedFrames() const;
    /// The first sample of channel 0 or 1.
    [[nodiscard]] float *samples(int channel) const;
    /// Marks so many frames as filled.
    void setFrames(std::uint32_t frames);

private:
    pw_stream *m_stream;
    pw_buffer *m_buffer;
    bool m_isStereo;
};

} // namespace perchly
