#include "LockedInstance.h"

#include <QLocalSocket>
#include <QStandardPaths>

#include <cstdio>

namespace perchly {

using namespace std::chrono_literals;

LockedInstance::LockedInstance(std::shared_ptr<SessionBus> bus)
    : m_bus(std::move(bus))
    , m_folder(QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation))
    , m_lock(m_folder + QStringLiteral("/perchly.lock")) {
    m_lock.setStaleLockTime(0); // a lock never expires while its process lives
    connect(&m_server, &QLocalServer::newConnection, this, [this] {
        while (m_server.hasPendingConnections()) {
            delete m_server.nextPendingConnection(); // accepting the connection is the answer
        }
        Q_EMIT requested(QStringLiteral("show"));
    });
}

bool LockedInstance::claim() {
    const QDeadlineTimer deadline(1s);
    while (!m_lock.tryLock(20)) {
        if (m_lock.error() != QLockFile::LockFailedError) {
            std::fputs("perchly: cannot make sure that this is the only instance: the lock cannot "
                       "be written\n",
                       stderr);
            break;
        }
        // The other instance may be starting, with no socket yet, or ending, with no socket left.
        if (knock(deadline)) {
            return false;
        }
        if (deadline.hasExpired()) {
            qint64 process = 0;
            QString host;
            QString application;
            m_lock.getLockInfo(&process, &host, &application);
            std::fprintf(stderr,
                         "perchly: another instance is running, but it does not answer: process "
                         "%lld\n",
                         process);
            return false;
        }
    }
    listen();
    return true;
}

bool LockedInstance::knock(const QDeadlineTimer &deadline) {
    QLocalSocket socket;
    socket.connectToServer(m_folder + QStringLiteral("/perchly.socket"));
    return socket.waitForConnected(int(deadline.remainingTime())) &&
           (socket.state() == QLocalSocket::UnconnectedState ||
            socket.waitForDisconnected(int(deadline.remainingTime())));
}

void LockedInstance::listen() {
    const QString path = m_folder + QStringLiteral("/perchly.socket");
    if (m_lock.isLocked()) {
        QLocalServer::removeServer(path); // left by a killed instance
        m_server.listen(path);
    }
    m_object = std::make_unique<ApplicationObject>(m_bus);
    connect(m_object.get(), &ApplicationObject::requested, this, &SingleInstance::requested);
}

} // namespace perchly
