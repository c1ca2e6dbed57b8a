#include "SoundSystem.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <cmath>
#include <csignal>
#include <numbers>
#include <vector>

namespace perchly {

namespace {

template <class Value>
void append(QByteArray &bytes, Value value) {
    bytes.append(reinterpret_cast<const char *>(&value), sizeof(value));
}

/// A minute of stereo floats; 480 Hz, so that every hundred frames are the same.
QString toneFile() {
    const QString path = QDir::tempPath() + QStringLiteral("/tone.wav");
    if (QFile::exists(path)) {
        return path;
    }
    constexpr std::uint32_t rate = 48000;
    constexpr std::uint32_t frames = rate * 60;
    constexpr std::uint32_t size = frames * 8;
    QByteArray bytes("RIFF");
    append(bytes, std::uint32_t(36 + size));
    bytes.append("WAVEfmt ");
    append(bytes, std::uint32_t(16));
    append(bytes, std::uint16_t(3));
    append(bytes, std::uint16_t(2));
    append(bytes, rate);
    append(bytes, rate * 8);
    append(bytes, std::uint16_t(8));
    append(bytes, std::uint16_t(32));
    bytes.append("data");
    append(bytes, size);
    for (std::uint32_t frame = 0; frame < frames; ++frame) {
        const float sample =
            toneLevel * std::sin(2 * std::numbers::pi_v<float> * float(frame % 100) / 100);
        append(bytes, sample);
        append(bytes, sample);
    }
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
        qFatal("no place for the tone");
    }
    return path;
}

} // namespace

Player::Player(const QString &program, const QStringList &arguments) {
    QStringList all = arguments;
    if (program == QStringLiteral("pw-cat")) {
        all.prepend(QStringLiteral("--playback"));
    }
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process.start(program, all + QStringList{toneFile()});
    if (!m_process.waitForStarted()) {
        qFatal("%s does not start", qPrintable(program));
    }
}

Player::~Player() {
    end();
}

void Player::pause() const {
    ::kill(pid(), SIGSTOP);
}

void Player::resume() const {
    ::kill(pid(), SIGCONT);
}

void Player::end() {
    m_process.kill();
    m_process.waitForFinished();
}

QString told(const QString &program, const QStringList &arguments) {
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished(5000)) {
        qWarning("%s does not answer", qPrintable(program));
    }
    return QString::fromUtf8(process.readAllStandardOutput());
}

QStringList tracesOfRoutes() {
    const QString all = told(QStringLiteral("pw-dump"), {});
    return all.split(u'\n').filter(QStringLiteral("perchly."));
}

SoundSystem::SoundSystem() {
    system.start();
    if (!QTest::qWaitFor([this] { return system.processes().has_value(); }, 5000)) {
        qFatal("the sound system does not answer");
    }
}

std::optional<AudioProcess> SoundSystem::process(std::int32_t pid) const {
    const auto processes = system.processes();
    for (const AudioProcess &process : processes.value_or(QList<AudioProcess>())) {
        if (process.pid == pid) {
            return process;
        }
    }
    return std::nullopt;
}

AudioObject SoundSystem::waitForProcess(std::int32_t pid) const {
    std::optional<AudioProcess> found;
    const bool plays = QTest::qWaitFor(
        [&] {
            found = process(pid);
            return found && found->isRunningOutput == true;
        },
        5000);
    return plays ? found->object : 0;
}

std::shared_ptr<TapPlayback> SoundSystem::route(const Player &player) {
    return std::make_shared<TapPlayback>(system, waitForProcess(player.pid()));
}

} // namespace perchly
