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

using Program = std::unique_ptr<QProcess>;

/// Starts a program that is killed when its QProcess is destroyed.
inline Program startProgram(const QString &name, const QStringList &arguments) {
    auto program = std::make_unique<QProcess>();
    program->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    program->start(name, arguments);
    if (!program->waitForStarted()) {
        qFatal("%s does not start", qPrintable(name));
    }
    return program;
}

/// A PulseAudio client that plays for a minute, with properties as in PULSE_PROP.
inline Program pulsePlayer(const QString &properties = {}) {
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
    return startProgram(QStringLiteral("env"), arguments);
}

/// A native client that plays through one stream; see TonePlayer.cpp.
inline Program nativePlayer(const QStringList &arguments = {}) {
    const QString folder = QCoreApplication::applicationDirPath();
    Program player = startProgram(folder + QStringLiteral("/TonePlayer"), arguments);
    player->write("+");
    return player;
}

/// Runs a command, split at spaces, while the event loop runs; returns its stdout.
inline QString output(const QString &command) {
    QProcess process;
    process.startCommand(command);
    if (!QTest::qWaitFor([&] { return process.state() == QProcess::NotRunning; }, 5000)) {
        qWarning("%s does not end", qPrintable(command));
    }
    return QString::fromUtf8(process.readAllStandardOutput());
}

} // namespace perchly
