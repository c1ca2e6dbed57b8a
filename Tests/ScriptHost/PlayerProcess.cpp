#include "PlayerProcess.h"

#include "MediaScripts.h"

#include <QDeadlineTimer>
#include <QJsonDocument>

#include <thread>

namespace perchly {

PlayerProcess::PlayerProcess(const char *name, const QByteArray &script) {
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process.start(
        QStringLiteral("/usr/bin/python3"),
        {QStringLiteral(SCRIPTED_PLAYER), QString::fromUtf8(name), QString::fromUtf8(script)});
    while (!m_process.canReadLine() && m_process.waitForReadyRead(10'000)) {
    }
    m_ready = m_process.readLine() == "ready\n";
}

PlayerProcess::~PlayerProcess() {
    m_process.kill();
    m_process.waitForFinished();
    // The bus takes a moment to notice.
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
}

QStringList PlayerProcess::commands() {
    const QDeadlineTimer deadline(50);
    while (!deadline.hasExpired()) {
        m_process.waitForReadyRead(int(deadline.remainingTime()));
    }
    const QString text = QString::fromUtf8(m_process.readAllStandardOutput());
    return text.split(u'\n', Qt::SkipEmptyParts);
}

std::optional<QByteArray> runCompanion(const QStringList &arguments) {
    QProcess process;
    process.start(QStringLiteral(COMPANION), arguments);
    const bool ended = process.waitForFinished(8000) &&
                       process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
    return ended ? std::optional(process.readAllStandardOutput()) : std::nullopt;
}

std::optional<QByteArray> runJavaScript(const QString &script) {
    return runCompanion(
        {QStringLiteral("-l"), QStringLiteral("JavaScript"), QStringLiteral("-e"), script});
}

QJsonValue readSession() {
    const auto output = runJavaScript(readScript());
    if (!output) {
        return QJsonValue(QJsonValue::Undefined);
    }
    if (*output == "null\n") {
        return QJsonValue(QJsonValue::Null);
    }
    const QJsonDocument document = QJsonDocument::fromJson(*output);
    return document.isObject() ? QJsonValue(document.object())
                               : QJsonValue(QStringLiteral("not JSON"));
}

} // namespace perchly
