#include "LockedInstance.h"

#include "InstanceSocket.h"

#include <QDeadlineTimer>
#include <QLocalSocket>
#include <QPointer>
#include <QStandardPaths>

#include <cstdio>

namespace perchly {

using namespace std::chrono_literals;

LockedInstance::LockedInstance(std::shared_ptr<SessionBus> bus)
    : m_bus(std::move(bus))
    , m_lock(QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation) +
             QStringLiteral("/perchly.lock")) {
    m_lock.setStaleLockTime(0); // a lock never expires while its process lives
    QObject::connect(&m_server, &QLocalServer::newConnection, &m_server, [this] {
        while (QLocalSocket *socket = m_server.nextPendingConnection()) {
            const auto read = [this, socket] { answer(socket); };
            QObject::connect(socket, &QLocalSocket::readyRead, socket, read);
            QObject::connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
            read();
        }
    });
}

std::optional<QString> LockedInstance::claim(const QStringList &command) {
    const QDeadlineTimer deadline(1s);
    while (!m_lock.tryLock(20)) {
        if (m_lock.error() != QLockFile::LockFailedError) {
            std::fputs("perchly: cannot make sure that this is the only instance: the lock cannot "
                       "be written\n",
                       stderr);
            break;
        }
        // The other instance may be starting, with no socket yet, or ending, with no socket left.
        if (auto error = instancesocket::send(command, 2s)) {
            return error;
        }
        if (deadline.hasExpired()) {
            qint64 process = 0;
            QString host;
            QString application;
            m_lock.getLockInfo(&process, &host, &application);
            return instancesocket::noAnswer(process);
        }
    }
    listen();
    return std::nullopt;
}

void LockedInstance::listen() {
    const QString path = instancesocket::path();
    if (m_lock.isLocked()) {
        QLocalServer::removeServer(path); // left by a killed instance
        m_server.listen(path);
    }
    m_object = std::make_unique<ApplicationObject>(
        m_bus,
        [this](const QStringList &command, const Answer &answer) { perform(command, answer); });
}

void LockedInstance::answer(QLocalSocket *socket) {
    if (socket->canReadLine()) {
        perform(instancesocket::decoded(socket->readLine()),
                [guard = QPointer(socket)](const QString &error) {
                    if (guard) {
                        guard->write(error.toUtf8() + '\n');
                        guard->flush(); // the command may have ended the event loop
                        guard->disconnectFromServer();
                    }
                });
    }
}

} // namespace perchly
