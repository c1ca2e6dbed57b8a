#include "RouteKeeper.h"

namespace perchly {

namespace {
constexpr std::chrono::seconds idleTimeout{5};
}

RouteKeeper::RouteKeeper(QString program, QObject *parent)
    : QObject(parent)
    , m_program(std::move(program)) {
    m_rest.setSingleShot(true);
    m_rest.setInterval(idleTimeout);
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
    m_rest.stop();
    m_kept.insert(node, target);
    if (m_companion != nullptr) {
        send(node);
    } else {
        start();
    }
}

void RouteKeeper::start() {
    m_companion = new QProcess(this);
    m_companion->setProcessChannelMode(QProcess::ForwardedChannels);
    const auto gone = [this, companion = m_companion] { drop(companion); };
    connect(m_companion, &QProcess::finished, this, gone);
    connect(m_companion, &QProcess::errorOccurred, this, [gone](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart) {
            gone();
        }
    });
    m_companion->start(m_program);
    for (auto kept = m_kept.cbegin(); kept != m_kept.cend() && m_companion != nullptr; ++kept) {
        send(kept.key());
    }
}

void RouteKeeper::drop(QProcess *companion) {
    companion->deleteLater();
    if (m_companion == companion) {
        m_companion = nullptr;
    }
}

void RouteKeeper::send(std::uint32_t node) {
    QByteArray record = '+' + QByteArray::number(node);
    if (const std::optional<StreamTarget> &target = m_kept[node]) {
        record += '\t' + target->type + '\t' + target->value;
    }
    m_companion->write(record + '\0');
}

void RouteKeeper::forget(std::uint32_t node) {
    if (!m_kept.remove(node) || m_companion == nullptr) {
        return;
    }
    m_companion->write('-' + QByteArray::number(node) + '\0');
    if (m_kept.isEmpty()) {
        m_rest.start();
    }
}

void RouteKeeper::dismiss() {
    if (m_companion != nullptr) {
        m_companion->closeWriteChannel();
        m_companion = nullptr; // deleted when it ends
    }
}

} // namespace perchly
