#pragma once

#include <QElapsedTimer>
#include <QProcess>
#include <QTest>

#include <algorithm>
#include <cmath>
#include <vector>

namespace perchly {

/// Records an output's sound, in stereo at 48 kHz.
class SoundMeter {
public:
    explicit SoundMeter(const QString &output) {
        m_recorder.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_recorder.start(QStringLiteral("pw-record"),
                         {QStringLiteral("--target"), output, QStringLiteral("--properties"),
                          QStringLiteral("{ stream.capture.sink=true node.dont-reconnect=true }"),
                          QStringLiteral("--latency=20ms"), QStringLiteral("--format=f32"),
                          QStringLiteral("--rate=48000"), QStringLiteral("--channels=2"),
                          QStringLiteral("-")});
        if (!QTest::qWaitFor([this] { return m_recorder.bytesAvailable() > 0; }, 5000)) {
            qWarning("%s cannot be heard", qPrintable(output));
        }
    }

    /// Waits, running the event loop, until the peak over 120 ms is `wanted` within 1 %.
    [[nodiscard]] bool comesTo(float wanted, int timeout = 4000) {
        constexpr std::size_t samples = 120 * std::size_t(48) * 2;
        QElapsedTimer time;
        time.start();
        float peak = -1;
        while (time.elapsed() < timeout) {
            clear();
            static_cast<void>(QTest::qWaitFor([this] { return heard().size() >= samples; }, 740));
            peak = 0;
            for (const float sample : m_heard) {
                peak = std::max(peak, std::abs(sample));
            }
            if (std::abs(peak - wanted) <= 0.01F * wanted + 1e-5F) {
                return true;
            }
        }
        qWarning("heard %f instead of %f", double(peak), double(wanted));
        return false;
    }

    /// Discards everything heard so far.
    void clear() {
        static_cast<void>(heard());
        m_heard.clear();
    }

    /// The longest silence since clear(), in frames.
    [[nodiscard]] std::size_t maxSilence() {
        std::size_t longest = 0;
        std::size_t length = 0;
        for (const float sample : heard()) {
            length = std::abs(sample) < 1e-5F ? length + 1 : 0;
            longest = std::max(longest, length);
        }
        return longest / 2;
    }

private:
    const std::vector<float> &heard() {
        const qint64 samples = m_recorder.bytesAvailable() / qint64(sizeof(float));
        const std::size_t before = m_heard.size();
        m_heard.resize(before + std::size_t(samples));
        m_recorder.read(reinterpret_cast<char *>(m_heard.data() + before),
                        samples * qint64(sizeof(float)));
        return m_heard;
    }

    QProcess m_recorder;
    std::vector<float> m_heard;
};

} // namespace perchly
