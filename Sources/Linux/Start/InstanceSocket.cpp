#include "InstanceSocket.h"

#include "UserLanguage.h"

#include <QCoreApplication>
#include <QFile>
#include <QScopeGuard>
#include <QStandardPaths>
#include <QUrl>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <sys/socket.h>
#include <sys/time.h>
#include <sys/un.h>
#include <unistd.h>

namespace perchly::instancesocket {

QString path() {
    return QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation) +
           QStringLiteral("/perchly.socket");
}

QByteArray encoded(const QStringList &command) {
    QByteArrayList words;
    for (const QString &word : command) {
        words.append(QUrl::toPercentEncoding(word));
    }
    return words.join(' ') + '\n';
}

QStringList decoded(const QByteArray &line) {
    QStringList command;
    for (const QByteArray &word : line.trimmed().split(' ')) {
        command.append(QUrl::fromPercentEncoding(word));
    }
    return command;
}

std::optional<QString> send(const QStringList &command, std::chrono::milliseconds timeout) {
    const int file = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const auto closeFile = qScopeGuard([file] { close(file); });
    const timeval time{.tv_sec = timeout.count() / 1000, .tv_usec = timeout.count() % 1000 * 1000};
    setsockopt(file, SOL_SOCKET, SO_SNDTIMEO, &time, sizeof time);
    setsockopt(file, SOL_SOCKET, SO_RCVTIMEO, &time, sizeof time);
    sockaddr_un address{.sun_family = AF_UNIX, .sun_path = {}};
    const QByteArray name = QFile::encodeName(path());
    std::memcpy(address.sun_path, name.constData(),
                std::min(std::size_t(name.size()), sizeof address.sun_path - 1));
    if (connect(file, reinterpret_cast<const sockaddr *>(&address), sizeof address) != 0 &&
        errno != EAGAIN) {
        return std::nullopt;
    }

    QByteArray request = encoded(command);
    while (!request.isEmpty()) {
        const ssize_t sent =
            ::send(file, request.constData(), std::size_t(request.size()), MSG_NOSIGNAL);
        if (sent <= 0) {
            break;
        }
        request.remove(0, sent);
    }
    QByteArray answer;
    std::array<char, 1024> part{};
    ssize_t size = 0;
    while ((size = recv(file, part.data(), part.size(), 0)) > 0) {
        answer.append(part.data(), size);
    }
    if (answer.endsWith('\n')) {
        return QString::fromUtf8(answer.trimmed());
    }
    ucred other{};
    socklen_t length = sizeof other;
    getsockopt(file, SOL_SOCKET, SO_PEERCRED, &other, &length);
    return noAnswer(other.pid);
}

QString noAnswer(qint64 process) {
    loadUserLanguageToPrint();
    return QCoreApplication::translate(
               "Command", "another instance is running, but it does not answer: process %1")
        .arg(process);
}

} // namespace perchly::instancesocket
