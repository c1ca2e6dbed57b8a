#include "ProcessQuickLook.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace perchly {

namespace {

QByteArray requestFor(const QList<QUrl> &items, qsizetype index) {
    QJsonArray urls;
    for (const QUrl &item : items) {
        urls.append(item.toString(QUrl::FullyEncoded));
    }
    const QJsonObject request{{QStringLiteral("items"), urls},
                              {QStringLiteral("index"), qint64(index)},
                              {QStringLiteral("toggle"), true}};
    return QJsonDocument(request).toJson(QJsonDocument::Compact) + '\n';
}

} // namespace

ProcessQuickLook::ProcessQuickLook(QString program)
    : m_program(std::move(program)) {
    m_process.setStandardOutputFile(QProcess::nullDevice());
    m_process.setStandardErrorFile(QProcess::nullDevice());
}

ProcessQuickLook::~ProcessQuickLook() {
    // It has nothing to save.
    m_process.closeWriteChannel();
    m_process.kill();
    m_process.waitForFinished(200);
}

void ProcessQuickLook::look(const QList<QUrl> &items, qsizetype index) {
    if (m_program.isEmpty() || index < 0 || index >= items.size()) {
        return;
    }
    if (m_process.state() == QProcess::NotRunning) {
        m_process.start(m_program, {}, QProcess::WriteOnly);
    }
    m_process.write(requestFor(items, index));
}

} // namespace perchly
