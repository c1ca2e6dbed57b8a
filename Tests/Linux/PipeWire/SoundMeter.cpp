#include "SoundMeter.h"

#include <QElapsedTimer>
#include <QTest>

#include <algorithm>
#include <cmath>

namespace perchly {

namespace {

constexpr std::size_t channels = 2;
constexpr std::size_t samplesPerMillisecond = 48 * channels;

} // namespace

SoundMeter::SoundMeter(const QString &output) {
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

SoundMeter::~SoundMeter() {
    m_recorder.kill();
    m_recorder.waitForFinished();
}

void SoundMeter::read() {
    const qint64 samples = m_recorder.bytesAvailable() / qint64(sizeof(float));
    const std::size_t before = m_heard.size();
    m_heard.resize(before + std::size_t(samples));
    m_recorder.read(reinterpret_cast<char *>(m_heard.data() + before),
                    samples * qint64(sizeof(float)));
}

float SoundMeter::level(int milliseconds) {
    const std::size_t wanted = std::size_t(milliseconds) * samplesPerMillisecond;
    clear();
    const auto isHeard = [&] {
        read();
        return m_heard.size() >= wanted;
    };
    static_cast<void>(QTest::qWaitFor(isHeard, milliseconds * 2 + 500));
    float peak = 0;
    for (const float sample : m_heard) {
        peak = std::max(peak, std::abs(sample));
    }
    return peak;
}

bool SoundMeter::comesTo(float wanted, int limit) {
    QElapsedTimer time;
    time.start();
    float last = -1;
    while (time.elapsed() < limit) {
        last = level();
        if (std::abs(last - wanted) <= 0.01F * wanted + 1e-5F) {
            return true;
        }
    }
    qWarning("heard %f instead of %f", double(last), double(wanted));
    return false;
}

void SoundMeter::clear() {
    read();
    m_heard.clear();
}

std::size_t SoundMeter::maxSilence() {
    read();
    std::size_t longest = 0;
    std::size_t length = 0;
    for (const float sample : m_heard) {
        length = std::abs(sample) < 1e-5F ? length + 1 : 0;
        longest = std::max(longest, length);
    }
    return longest / channels;
}

} // namespace perchly
