#pragma once

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTest>

#include <memory>

namespace perchly {

/// Amplitude of the constant signal that players play.
constexpr float toneLevel = 0.25F;

/// A running program. It is killed with this.
class Program {
public:
    Program(const QString &program, const QStringList &arguments) {
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_process.start(program, arguments);
        if (!m_process.waitForStarted()) {
            qFatal("%s does not start", qPrintable(program));
        }
    }
    ~Program() { kill(); }
    Q_DISABLE_COPY_MOVE(Program)

    [[nodiscard]] std::int32_t pid() const { return std::int32_t(m_process.processId()); }
    /// Writes to stdin.
    void tell(const char *text) {
        m_process.write(text);
        m_process.waitForBytesWritten();
    }
    /// Closes stdin and waits for the end.
    void quit() {
        m_process.closeWriteChannel();
        m_process.waitForFinished();
    }
    /// kill -9.
    void kill() {
        m_process.kill();
        m_process.waitForFinished();
    }

private:
    QProcess m_process;
};

/// A PulseAudio client that plays for a minute, with properties as in PULSE_PROP.
inline std::unique_ptr<Program> pulsePlayer(const QString &properties = {}) {
    QFile tone(QDir::tempPath() + QStringLiteral("/tone"));
    if (!tone.exists() && tone.open(QIODevice::WriteOnly)) {
        const QList<float> samples(qsizetype(48000) * 60 * 2, toneLevel);
        tone.write(reinterpret_cast<const char *>(samples.data()),
                   samples.size() * qint64(sizeof(float)));
    }
    const QStringList arguments{QStringLiteral("PULSE_PROP=") + properties,
                                QStringLiteral("paplay"),
                                QStringLiteral("--raw"),
                                QStringLiteral("--format=float32le"),
                                QStringLiteral("--rate=48000"),
                                tone.fileName()};
    return std::make_unique<Program>(QStringLiteral("env"), arguments);
}

/// A native client that plays through one stream; see TonePlayer.cpp.
inline std::unique_ptr<Program> nativePlayer(const QStringList &arguments = {}) {
    const QString folder = QCoreApplication::applicationDirPath();
    auto player = std::make_unique<Program>(folder + QStringLiteral("/TonePlayer"), arguments);
    player->tell("+");
    return player;
}

/// Runs a command of words without spaces while the event loop goes on; returns its stdout.
inline QString output(const QString &command) {
    QProcess process;
    process.startCommand(command);
    if (!QTest::qWaitFor([&] { return process.state() == QProcess::NotRunning; }, 5000)) {
        qWarning("%s does not end", qPrintable(command));
    }
    return QString::fromUtf8(process.readAllStandardOutput());
}

} // namespace perchly
