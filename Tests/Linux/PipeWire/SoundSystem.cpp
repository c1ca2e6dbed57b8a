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

/// A minute of stereo floats; 480 Hz, so that every hundred frames are the same.
QString toneFile() {
    const QString path = QDir::tempPath() + QStringLiteral("/tone");
    QFile file(path);
    if (!file.exists()) {
        std::vector<float> samples(size_t(48000) * 60 * 2);
        for (size_t at = 0; at < samples.size(); ++at) {
            const auto turn = float(at / 2 % 100) / 100;
            samples[at] = toneLevel * std::sin(2 * std::numbers::pi_v<float> * turn);
        }
        const auto size = qint64(samples.size() * sizeof(float));
        if (!file.open(QIODevice::WriteOnly) ||
            file.write(reinterpret_cast<const char *>(samples.data()), size) != size) {
            qFatal("cannot write the tone");
        }
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

bool Program::waitForLine() {
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
    const QStringList arguments{QStringLiteral("PULSE_PROP=") + properties,
                                QStringLiteral("paplay"),
                                QStringLiteral("--raw"),
                                QStringLiteral("--format=float32le"),
                                QStringLiteral("--rate=48000"),
                                toneFile()};
    return std::make_unique<Program>(QStringLiteral("env"), arguments);
}

std::unique_ptr<Program> nativePlayer(const QStringList &arguments) {
    const QString folder = QCoreApplication::applicationDirPath();
    auto player = std::make_unique<Program>(folder + QStringLiteral("/TonePlayer"), arguments);
    player->tell("+");
    return player;
}

std::unique_ptr<Program> routeOwner(const Program &player) {
    const QString folder = QCoreApplication::applicationDirPath();
    return std::make_unique<Program>(folder + QStringLiteral("/RouteOwner"),
                                     QStringList(QString::number(player.pid())));
}

QString output(const QString &command) {
    QProcess process;
    process.startCommand(command);
    if (!QTest::qWaitFor([&] { return process.state() == QProcess::NotRunning; }, 5000)) {
        qWarning("%s does not end", qPrintable(command));
    }
    return QString::fromUtf8(process.readAllStandardOutput());
}

QString tracesOfRoutes() {
    const QStringList lines = output(QStringLiteral("pw-dump")).split(u'\n');
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

std::unique_ptr<MixerRoute> SoundSystem::route(const Program &player, float gain) {
    QString error;
    auto route = MixerRoute::make(system, waitForProcess(player.pid()), error);
    if (!route) {
        qFatal("%s", qPrintable(error));
    }
    route->setGain(gain);
    return route;
}

} // namespace perchly
