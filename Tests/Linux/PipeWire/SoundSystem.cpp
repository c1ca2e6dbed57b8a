#include "SoundSystem.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTest>

#include <cmath>
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

Program::Program(const QString &program, const QStringList &arguments) {
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process.start(program, arguments);
    if (!m_process.waitForStarted()) {
        qFatal("%s does not start", qPrintable(program));
    }
}

Program::~Program() {
    kill();
}

void Program::tell(const char *text) {
    m_process.write(text);
    m_process.waitForBytesWritten();
}

bool Program::waitForWord() {
    return QTest::qWaitFor([this] { return m_process.canReadLine(); }, 10000);
}

void Program::quit() {
    m_process.closeWriteChannel();
    m_process.waitForFinished();
}

void Program::kill() {
    m_process.kill();
    m_process.waitForFinished();
}

std::unique_ptr<Program> pulsePlayer(const QString &properties) {
    return std::make_unique<Program>(QStringLiteral("env"),
                                     QStringList{QStringLiteral("PULSE_PROP=") + properties,
                                                 QStringLiteral("paplay"), toneFile()});
}

std::unique_ptr<Program> nativePlayer(const QStringList &arguments) {
    auto player = std::make_unique<Program>(
        QCoreApplication::applicationDirPath() + QStringLiteral("/TonePlayer"), arguments);
    player->tell("+");
    return player;
}

std::unique_ptr<Program> routeOwner(const Program &player) {
    return std::make_unique<Program>(QCoreApplication::applicationDirPath() +
                                         QStringLiteral("/RouteOwner"),
                                     QStringList{QString::number(player.pid())});
}

QString told(const QString &program, const QStringList &arguments) {
    QProcess process;
    process.start(program, arguments);
    // The program under test goes on meanwhile, as other programs wait for its streams.
    if (!QTest::qWaitFor([&] { return process.state() == QProcess::NotRunning; }, 5000)) {
        qWarning("%s does not answer", qPrintable(program));
    }
    return QString::fromUtf8(process.readAllStandardOutput());
}

QString tracesOfRoutes() {
    const QStringList lines = told(QStringLiteral("pw-dump"), {}).split(u'\n');
    return (lines.filter(QStringLiteral("\"node.name\": \"perchly.")) +
            lines.filter(QStringLiteral("\"key\": \"target.object\"")))
        .join(u'\n');
}

SoundSystem::SoundSystem(PipeWireAudioSystem::ApplicationFinder find)
    : system(std::move(find), QStringLiteral(ROUTE_KEEPER)) {
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

std::shared_ptr<TapPlayback> SoundSystem::route(const Program &player) {
    return std::make_shared<TapPlayback>(system, waitForProcess(player.pid()));
}

} // namespace perchly
