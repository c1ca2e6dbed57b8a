#include "SessionBus.h"

#include <systemd/sd-bus.h>

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QPointer>
#include <QThreadPool>

#include <memory>

namespace perchly {

using namespace std::chrono_literals;

bool SessionBus::answers(std::chrono::milliseconds timeout) {
    sd_bus *opened = nullptr;
    if (sd_bus_open_user(&opened) < 0) {
        return false;
    }
    const std::unique_ptr<sd_bus, decltype(&sd_bus_close_unref)> bus(opened, sd_bus_close_unref);
    const QDeadlineTimer deadline(timeout);
    while (sd_bus_is_ready(bus.get()) == 0 && !deadline.hasExpired()) {
        const int handled = sd_bus_process(bus.get(), nullptr);
        if (handled < 0) {
            return false;
        }
        if (handled == 0) {
            sd_bus_wait(bus.get(), quint64(deadline.remainingTime()) * 1000);
        }
    }
    return sd_bus_is_ready(bus.get()) > 0;
}

SessionBus::SessionBus(QString name, bool hasAnswered)
    : m_name(std::move(name)) {
    m_retry.setSingleShot(true);
    connect(&m_retry, &QTimer::timeout, this, &SessionBus::retry);
    onAnswer(hasAnswered);
}

SessionBus::~SessionBus() {
    QDBusConnection::disconnectFromBus(m_name);
}

void SessionBus::onAnswer(bool answered) {
    if (answered) {
        // QtDBus has no timeout for connecting, so connect only after the bus has answered.
        auto bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, m_name);
        if (bus.connect(QString(), QStringLiteral("/org/freedesktop/DBus/Local"),
                        QStringLiteral("org.freedesktop.DBus.Local"),
                        QStringLiteral("Disconnected"), this, SLOT(onDisconnected()))) {
            Q_EMIT connected();
            return;
        }
        QDBusConnection::disconnectFromBus(m_name);
    }
    // At a busy login the answer may just be late.
    m_retry.start(m_failures++ < 3 ? 3s : 30s);
}

void SessionBus::onDisconnected() {
    QDBusConnection::disconnectFromBus(m_name);
    m_name += u'+'; // QDBusServiceWatcher ignores a new connection with the same name
    m_failures = 0;
    m_retry.start(3s);
    Q_EMIT lost();
}

void SessionBus::retry() {
    QThreadPool::globalInstance()->start([guard = QPointer(this)] {
        const bool answered = answers(1s);
        const auto tell = [guard, answered] {
            if (guard) {
                guard->onAnswer(answered);
            }
        };
        QMetaObject::invokeMethod(QCoreApplication::instance(), tell, Qt::QueuedConnection);
    });
}

} // namespace perchly
