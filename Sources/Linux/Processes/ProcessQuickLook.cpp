#include "ProcessQuickLook.h"

#include "OwnEnvironment.h"

#include <QGuiApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcessEnvironment>
#include <QScreen>
#include <QWindow>

#include <cstdlib>

namespace perchly {

namespace {

constexpr qint64 maxExitTime = 1000; // milliseconds

QByteArray requestFor(const QList<QUrl> &items, qsizetype index) {
    QJsonArray urls;
    for (const QUrl &item : items) {
        urls.append(item.toString(QUrl::FullyEncoded));
    }
    const QWindow *asking = QGuiApplication::focusWindow();
    const QJsonObject request{
        {QStringLiteral("items"), urls},
        {QStringLiteral("index"), qint64(index)},
        {QStringLiteral("toggle"), true},
        {QStringLiteral("screen"), asking != nullptr ? asking->screen()->name() : QString()}};
    return QJsonDocument(request).toJson(QJsonDocument::Compact) + '\n';
}

} // namespace

ProcessQuickLook::ProcessQuickLook(QString program)
    : m_program(std::move(program)) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QGuiApplication::platformName());
    environment.remove(QLatin1StringView(bareSurfaces));
    m_process.setProcessEnvironment(environment);
    m_process.setStandardOutputFile(QProcess::nullDevice());
    m_process.setStandardErrorFile(QProcess::nullDevice());
    // If it exits so soon after a request, it was already quitting and has not read the request.
    QObject::connect(&m_process, &QProcess::finished, &m_process,
                     [this](int code, QProcess::ExitStatus status) {
                         if (status == QProcess::NormalExit && code == EXIT_SUCCESS &&
                             m_age.elapsed() < maxExitTime) {
                             send();
                         }
                     });
}

ProcessQuickLook::~ProcessQuickLook() {
    m_process.disconnect();
    // So that it quits; there is nothing to save.
    m_process.closeWriteChannel();
    m_process.kill();
    m_process.waitForFinished(200);
}

void ProcessQuickLook::look(const QList<QUrl> &items, qsizetype index) {
    if (m_program.isEmpty() || index < 0 || index >= items.size()) {
        return;
    }
    m_request = requestFor(items, index);
    m_age.start();
    send();
}

void ProcessQuickLook::send() {
    if (m_process.state() == QProcess::NotRunning) {
        m_process.start(m_program, {}, QProcess::WriteOnly);
    }
    m_process.write(m_request);
}

} // namespace perchly
