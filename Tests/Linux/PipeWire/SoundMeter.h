#pragma once

#include <QProcess>

#include <vector>

namespace perchly {

/// Listens to what an output plays, in stereo at 48 kHz.
class SoundMeter {
public:
    explicit SoundMeter(const QString &output);
    ~SoundMeter();
    Q_DISABLE_COPY_MOVE(SoundMeter)

    /// The peak of the next milliseconds; the event loop runs meanwhile.
    [[nodiscard]] float level(int milliseconds = 120);
    /// Whether the level comes to this value, within 1 %, and stays there for a while.
    [[nodiscard]] bool comesTo(float level, int limit = 4000);

    /// Starts listening again.
    void clear();
    /// Frames of the longest silence since then.
    [[nodiscard]] std::size_t maxSilence();

private:
    void read();

    QProcess m_recorder;
    std::vector<float> m_heard;
};

} // namespace perchly
