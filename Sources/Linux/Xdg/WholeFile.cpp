#include "WholeFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace perchly::wholefile {

namespace {

constexpr qint64 largestFile = qint64(64) << 20;
constexpr QLatin1StringView temporarySuffix(".tmp-");

QString errorText(int error = errno) {
    return QString::fromLocal8Bit(std::strerror(error));
}

class Descriptor {
public:
    explicit Descriptor(int descriptor)
        : m_descriptor(descriptor) {}
    ~Descriptor() { (void)close(); }
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;

    [[nodiscard]] int get() const { return m_descriptor; }
    [[nodiscard]] bool isOpen() const { return m_descriptor >= 0; }
    bool close() { return m_descriptor < 0 || ::close(std::exchange(m_descriptor, -1)) == 0; }

private:
    int m_descriptor;
};

bool writeAll(int descriptor, const QByteArray &bytes) {
    qsizetype written = 0;
    while (written < bytes.size()) {
        const ssize_t count =
            ::write(descriptor, bytes.constData() + written, size_t(bytes.size() - written));
        if (count < 0 && errno != EINTR) {
            return false;
        }
        written += count < 0 ? 0 : count;
    }
    return true;
}

QString readAll(int descriptor, QByteArray &bytes) {
    char block[65536];
    while (bytes.size() <= largestFile) {
        const ssize_t count = ::read(descriptor, block, sizeof block);
        if (count == 0) {
            return {};
        }
        if (count < 0 && errno != EINTR) {
            return errorText();
        }
        bytes.append(block, count < 0 ? 0 : count);
    }
    return QStringLiteral("it is larger than 64 MiB");
}

QString folderOf(const QString &path) {
    return QFileInfo(path).absolutePath();
}

int openTemporary(QByteArray &name) {
    return ::mkostemp(name.data(), O_CLOEXEC); // mode 0600
}

} // namespace

Version version(const QString &path) {
    struct stat status = {};
    if (::stat(QFile::encodeName(path).constData(), &status) != 0) {
        return {};
    }
    return {.exists = true,
            .device = status.st_dev,
            .number = status.st_ino,
            .size = status.st_size,
            .changed = qint64(status.st_mtim.tv_sec) * 1'000'000'000 + status.st_mtim.tv_nsec};
}

QString resolveLinks(const QString &path) {
    QString resolved = path;
    for (int links = 0; links < 40; ++links) {
        const QFileInfo info(resolved);
        if (!info.isSymLink()) {
            break;
        }
        resolved = info.symLinkTarget();
    }
    return resolved;
}

Contents read(const QString &path) {
    Contents contents;
    // Without blocking: a pipe of that name would wait for a writer.
    const Descriptor file(
        ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (!file.isOpen()) {
        contents.exists = errno != ENOENT && errno != ENOTDIR;
        contents.error = contents.exists ? errorText() : QString();
        return contents;
    }
    contents.exists = true;
    struct stat status = {};
    if (::fstat(file.get(), &status) != 0) {
        contents.error = errorText();
    } else if (!S_ISREG(status.st_mode)) {
        contents.error = QStringLiteral("it is not a file");
    } else {
        contents.error = readAll(file.get(), contents.bytes);
    }
    return contents;
}

QString replace(const QString &path, const QByteArray &bytes, Durability durability) {
    const QByteArray target = QFile::encodeName(path);
    const QByteArray pattern = target + temporarySuffix.data() + "XXXXXX";
    QByteArray temporary = pattern;
    int descriptor = openTemporary(temporary);
    if (descriptor < 0 && errno == ENOENT) {
        const QString folder = folderOf(path);
        QDir().mkpath(folderOf(folder));
        ::mkdir(QFile::encodeName(folder).constData(), S_IRWXU);
        temporary = pattern;
        descriptor = openTemporary(temporary);
    }
    if (descriptor < 0) {
        return errorText();
    }
    Descriptor file(descriptor);
    const bool onDisk = durability == Durability::Disk;
    if (!writeAll(file.get(), bytes) || (onDisk && ::fsync(file.get()) != 0) || !file.close() ||
        std::rename(temporary.constData(), target.constData()) != 0) {
        QString error = errorText();
        ::unlink(temporary.constData());
        return error;
    }
    return onDisk ? flush(folderOf(path)) : QString();
}

QString flush(const QString &path) {
    const Descriptor file(::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC));
    // Some file systems cannot do that with a folder, and need not.
    const bool done =
        file.isOpen() && (::fsync(file.get()) == 0 || errno == EINVAL || errno == EOPNOTSUPP);
    return done ? QString() : errorText();
}

std::optional<QString> setAside(const QString &path) {
    const QByteArray from = QFile::encodeName(path);
    for (int number = 1; number < 10000; ++number) {
        const QString aside = QStringLiteral("%1.kept-%2").arg(path).arg(number);
        const QByteArray to = QFile::encodeName(aside);
        if (QFileInfo::exists(aside)) {
            continue;
        }
        // A folder and some file systems know no second name; there it is moved.
        if (::link(from.constData(), to.constData()) == 0 ||
            ::renameat2(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), RENAME_NOREPLACE) ==
                0 ||
            (errno == EINVAL && std::rename(from.constData(), to.constData()) == 0)) {
            return aside;
        }
        if (errno != EEXIST) {
            return std::nullopt;
        }
    }
    return std::nullopt;
}

void takeBack(const QString &aside, const QString &path) {
    const QByteArray from = QFile::encodeName(aside);
    const QByteArray to = QFile::encodeName(path);
    if (version(aside) == version(path)) {
        ::unlink(from.constData());
    } else if (::renameat2(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(),
                           RENAME_NOREPLACE) != 0 &&
               errno == EINVAL && !QFileInfo::exists(path)) {
        (void)std::rename(from.constData(), to.constData());
    }
}

void removeLeftovers(const QString &path) {
    const QFileInfo info(path);
    QDir folder = info.absoluteDir();
    const QString prefix = info.fileName() + temporarySuffix;
    const auto names = folder.entryList(QDir::Files | QDir::Hidden | QDir::NoSymLinks);
    for (const QString &name : names) {
        if (name.startsWith(prefix) && name.size() == prefix.size() + 6) {
            folder.remove(name);
        }
    }
}

} // namespace perchly::wholefile
