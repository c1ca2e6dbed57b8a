#pragma once

#include <pipewire/stream.h>

#include <array>
#include <atomic>
#include <cstdint>
#include <memory>

struct AudioRingBuffer;

namespace perchly {

class LoopEvent;

/// The real-time thread's work in each cycle of the server's graph: it writes captured frames to
/// the ring and plays frames of the ring, both within the same cycle.
class RouteCycle {
public:
    explicit RouteCycle(std::shared_ptr<AudioRingBuffer> ring)
        : m_ring(std::move(ring)) {}

    // Main thread, before open().
    void setOutput(pw_stream *output) { m_output = output; }
    /// `running` is signalled after the second complete cycle, when both ends run and a whole cycle
    /// is left until the next one.
    void setRunning(LoopEvent *running) { m_running = running; }

    /// Starts using the ring. Until then nothing is captured and silence is played.
    void open() { m_isOpen.store(true, std::memory_order_release); }

    /// Whether the output may be triggered; false while the main thread prepares it.
    void setOutputRuns(bool runs) { m_outputRuns.store(runs, std::memory_order_release); }

    // Called on the real-time thread when the source has frames or the output wants some. Neither
    // blocks nor allocates.
    void capture(pw_stream *source);
    void play(pw_stream *output);

private:
    [[nodiscard]] bool isOpen() const { return m_isOpen.load(std::memory_order_acquire); }
    void dropStaleFrames(std::uint32_t captured);

    std::shared_ptr<AudioRingBuffer> m_ring;
    pw_stream *m_output = nullptr;
    std::atomic<bool> m_isOpen = false;
    std::atomic<bool> m_outputRuns = false;
    LoopEvent *m_running = nullptr;
    std::uint64_t m_cycles = 0;
    std::uint64_t m_captured = 0; ///< frames
    std::uint64_t m_played = 0;   ///< frames, including dropped ones
    bool m_hasPlayed = false;     ///< since the last capture
    std::array<float, 1024> m_dropped{};
};

} // namespace perchly
