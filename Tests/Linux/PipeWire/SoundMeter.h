#pragma once

#include <QString>

#include <pipewire/pipewire.h>

#include <atomic>
#include <mutex>
#include <vector>

namespace perchly {

/// Listens to what an output plays, the left channel, at 48 kHz.
class SoundMeter {
public:
    explicit SoundMeter(const QString &output);
    ~SoundMeter();
    Q_DISABLE_COPY_MOVE(SoundMeter)

    /// The loudest sample of the next milliseconds; the event loop runs meanwhile.
    [[nodiscard]] float level(int milliseconds = 120);
    /// Whether the level comes to this value, within 1 %, and stays there for a while.
    [[nodiscard]] bool comesTo(float level, int limit = 4000);

    /// Forgets what was heard so far.
    void clear();
    /// What was heard since.
    [[nodiscard]] std::vector<float> heard() const;
    /// Frames of silence in a row among what was heard since, at most.
    [[nodiscard]] std::size_t longestSilence() const;

private:
    static void listen(void *data);

    pw_thread_loop *m_loop;
    pw_stream *m_stream;
    mutable std::mutex m_mutex;
    std::vector<float> m_heard;
    std::atomic<std::size_t> m_cycles = 0;
};

} // namespace perchly
