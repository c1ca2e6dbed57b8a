#include "RequestReader.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <array>
#include <unistd.h>

namespace perchly {

namespace {

constexpr qsizetype longestRequest = 4 << 20;

} // namespace

RequestReader::RequestReader()
    : m_notifier(STDIN_FILENO, QSocketNotifier::Read) {
    connect(&m_notifier, &QSocketNotifier::activated, this, &RequestReader::readSome);
}

void RequestReader::readSome() {
    std::array<char, 65536> bytes{};
    const ssize_t count = read(STDIN_FILENO, bytes.data(), bytes.size());
    if (count <= 0 || m_buffer.size() > longestRequest) {
        m_notifier.setEnabled(false);
        Q_EMIT ended();
        return;
    }
    m_buffer.append(bytes.data(), count);
    for (qsizetype end = m_buffer.indexOf('\n'); end >= 0; end = m_buffer.indexOf('\n')) {
        const QByteArray line = m_buffer.left(end);
        m_buffer.remove(0, end + 1);
        handleLine(line);
    }
}

void RequestReader::handleLine(const QByteArray &line) {
    const QJsonObject object = QJsonDocument::fromJson(line).object();
    PreviewRequest request{.items = {},
                           .index = object.value(QStringLiteral("index")).toInteger(),
                           .toggle = object.value(QStringLiteral("toggle")).toBool()};
    const QJsonArray items = object.value(QStringLiteral("items")).toArray();
    for (const QJsonValue &item : items) {
        request.items.append(QUrl(item.toString()));
    }
    if (request.index >= 0 && request.index < request.items.size()) {
        Q_EMIT requested(request);
    }
}

} // namespace perchly
