#include "BackgroundStart.h"

#include "UserLanguage.h"

#include <QByteArray>
#include <QCoreApplication>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>

namespace perchly {

namespace {

void detach() {
    setsid();
    const int nowhere = open("/dev/null", O_RDWR | O_CLOEXEC);
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        dup2(nowhere, stream);
    }
    close(nowhere);
}

QByteArray readAll(int file) {
    QByteArray result;
    std::array<char, 1024> part{};
    ssize_t size = 0;
    while ((size = read(file, part.data(), part.size())) > 0) {
        result.append(part.data(), size);
    }
    return result;
}

} // namespace

std::optional<QString> BackgroundStart::fork() {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) {
        return qt_error_string();
    }
    const pid_t child = ::fork();
    if (child == 0) {
        m_pipe = ends[1];
        detach();
        return std::nullopt;
    }
    close(ends[1]);
    const QByteArray answer = readAll(ends[0]);
    if (answer.endsWith('\n')) {
        return QString::fromUtf8(answer.trimmed());
    }
    loadUserLanguageToPrint();
    return QCoreApplication::translate(
        "Command", "Perchly could not start. Run “perchly” without a command to see why.");
}

int BackgroundStart::finish(const QString &error) {
    if (isBackground()) {
        const QByteArray answer = error.toUtf8() + '\n';
        [[maybe_unused]] const ssize_t written =
            write(m_pipe, answer.constData(), std::size_t(answer.size()));
        close(m_pipe);
    } else if (!error.isEmpty()) {
        std::fprintf(stderr, "perchly: %s\n", qUtf8Printable(error));
    }
    return error.isEmpty() ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace perchly
