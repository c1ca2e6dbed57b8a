#pragma once

#include "AudioStream.h"

#include <pipewire/pipewire.h>

#include <array>
#include <atomic>

namespace perchly {

/// What the real-time thread does in each cycle of the server's graph: what was captured goes to
/// the capture block, and then, within the same cycle, the render block fills what is played.
class RouteCycle {
public:
    // Main thread, before open(). Each stream before it is connected.
    void setCapture(CaptureBlock capture) { m_capture = std::move(capture); }
    void setRender(RenderBlock render) { m_render = std::move(render); }
    void setSource(pw_stream *source) { m_source = source; }
    void setOutput(pw_stream *output) { m_output = output; }

    /// Lets the blocks be called from now on. Until then nothing is captured and silence played.
    void open() { m_isOpen.store(true, std::memory_order_release); }

    // The real-time thread, when the source has frames, and when the output wants some. They wait
    // for nothing and allocate nothing.
    void capture();
    void play();

private:
    [[nodiscard]] bool isOpen() const { return m_isOpen.load(std::memory_order_acquire); }
    void dropStaleFrames(std::uint32_t captured);

    pw_stream *m_source = nullptr;
    pw_stream *m_output = nullptr;
    CaptureBlock m_capture;
    RenderBlock m_render;
    std::atomic<bool> m_isOpen = false;
    std::uint64_t m_captured = 0; ///< frames
    std::uint64_t m_played = 0;   ///< frames, those dropped too
    bool m_hasPlayed = false;     ///< since the last capture
    std::array<float, 1024> m_dropped{};
};

} // namespace perchly
