#pragma once

#include <pipewire/stream.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>

namespace perchly {

/// Takes the next buffer of a stream and returns it when destroyed. For real-time threads. The
/// samples lie within the buffer whatever offset and size the other program wrote.
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
    [[nodiscard]] std::uint32_t frames() const { return m_frames; }
    [[nodiscard]] std::uint32_t wantedFrames() const;
    /// The first sample of channel 0 or 1.
    [[nodiscard]] float *samples(std::size_t channel) const;
    /// Marks that many frames as filled.
    void setFrames(std::uint32_t frames);

private:
    pw_stream *m_stream;
    pw_buffer *m_buffer;
    bool m_isStereo;
    std::array<std::uint32_t, 2> m_offsets{}; ///< of the first samples, in bytes
    std::uint32_t m_frames = std::numeric_limits<std::uint32_t>::max();
};

} // namespace perchly
