#include "RouteKeeper.h"

namespace perchly {

namespace {
constexpr std::chrono::seconds restAfterTheLast{5};
}

RouteKeeper::RouteKeeper(QString program, QObject *parent)
    : QObject(parent)
    , m_program(std::move(program)) {
    m_rest.setSingleShot(true);
    m_rest.setInterval(restAfterTheLast);
    connect(&m_rest, &QTimer::timeout, this, &RouteKeeper::dismiss);
}

RouteKeeper::~RouteKeeper() {
    for (auto *companion : findChildren<QProcess *>()) {
        companion->disconnect(this);
        companion->closeWriteChannel();
        companion->waitForFinished(100);
    }
}

void RouteKeeper::keep(std::uint32_t node, const std::optional<StreamTarget> &target) {
    if (m_program.isEmpty()) {
        return;
    }
    if (!m_companion) {
        m_companion = new QProcess(this);
        m_companion->setProcessChannelMode(QProcess::ForwardedChannels);
        connect(m_companion, &QProcess::finished, m_companion, &QObject::deleteLater);
        m_companion->start(m_program);
    }
    m_rest.stop();
    m_kept.insert(node);
    QByteArray record = '+' + QByteArray::number(node);
    if (target) {
        record += '\t' + target->type + '\t' + target->value;
    }
    m_companion->write(record + '\0');
}

void RouteKeeper::forget(std::uint32_t node) {
    if (!m_kept.remove(node) || !m_companion) {
        return;
    }
    m_companion->write('-' + QByteArray::number(node) + '\0');
    if (m_kept.isEmpty()) {
        m_rest.start();
    }
}

void RouteKeeper::dismiss() {
    if (m_companion) {
        m_companion->closeWriteChannel();
        m_companion = nullptr; // it goes when it has ended
    }
}

} // namespace perchly
