#include "LockedInstance.h"

#include <QDir>
#include <QFile>

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace perchly {

namespace {

/// A signal handler reaches nothing but globals. A pipe rather than a blocked signal and a signal
/// descriptor, since started programs would inherit the blocking.
std::atomic<int> writeEnd{-1};
static_assert(std::atomic<int>::is_always_lock_free);

void onSignal(int) {
    const int error = errno;
    const char byte = 0;
    (void)!::write(writeEnd.load(std::memory_order_relaxed), &byte, 1); // full is as good
    errno = error;
}

bool isPrivateFolder(const QString &path) {
    struct stat status = {};
    return ::lstat(QFile::encodeName(path).constData(), &status) == 0 && S_ISDIR(status.st_mode) &&
           status.st_uid == ::geteuid() && (status.st_mode & 022) == 0;
}

void tellUnlocked(const char *reason) {
    std::fprintf(stderr, "perchly: cannot make sure that this is the only instance: %s\n", reason);
}

} // namespace

LockedInstance::LockedInstance(const QString &folder, QObject *parent)
    : QObject(parent) {
    if (!folder.isEmpty()) {
        m_lock.emplace(QDir(folder).filePath(QStringLiteral("perchly.lock")));
        m_lock->setStaleLockTime(0); // a lock ends with its process, whatever its age
    }
}

LockedInstance::~LockedInstance() {
    stopListening();
}

QString LockedInstance::defaultFolder() {
    QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (isPrivateFolder(runtime)) {
        return runtime;
    }
    const QString own =
        QDir::temp().filePath(QStringLiteral("perchly-%1").arg(static_cast<uint>(::geteuid())));
    ::mkdir(QFile::encodeName(own).constData(), S_IRWXU);
    return isPrivateFolder(own) ? own : QString();
}

bool LockedInstance::claim(std::chrono::milliseconds patience) {
    if (!m_lock) {
        tellUnlocked("there is no folder for a lock");
        return true;
    }
    // Before the lock is taken: from then on the signal may come, and it would end the process.
    if (!listen()) {
        tellUnlocked(std::strerror(errno));
        return true;
    }
    if (m_lock->tryLock(static_cast<int>(patience.count()))) {
        return true;
    }
    if (m_lock->error() != QLockFile::LockFailedError) {
        tellUnlocked("the lock cannot be written");
        return true;
    }
    stopListening();
    qint64 process = 0;
    QString host;
    QString application;
    if (!m_lock->getLockInfo(&process, &host, &application) || process <= 0 ||
        ::kill(static_cast<pid_t>(process), SIGUSR1) != 0) {
        std::fputs("perchly: another instance is running, but it cannot be told\n", stderr);
    }
    return false;
}

bool LockedInstance::listen() {
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_NONBLOCK | O_CLOEXEC) != 0) {
        return false;
    }
    m_notifier.emplace(ends[0], QSocketNotifier::Read);
    connect(&*m_notifier, &QSocketNotifier::activated, this, [this, readEnd = ends[0]] {
        std::array<char, 64> bytes{};
        while (::read(readEnd, bytes.data(), bytes.size()) > 0) {
        }
        Q_EMIT requested();
    });
    writeEnd = ends[1];
    struct sigaction action = {};
    action.sa_handler = onSignal;
    action.sa_flags = SA_RESTART;
    return ::sigaction(SIGUSR1, &action, nullptr) == 0;
}

void LockedInstance::stopListening() {
    if (!m_notifier) {
        return;
    }
    std::signal(SIGUSR1, SIG_IGN); // one may be on its way
    const int readEnd = static_cast<int>(m_notifier->socket());
    m_notifier.reset();
    ::close(readEnd);
    ::close(writeEnd.exchange(-1));
}

} // namespace perchly
