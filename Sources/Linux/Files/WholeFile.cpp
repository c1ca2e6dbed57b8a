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

QString folderOf(const QString &path) {
    return QFileInfo(path).absolutePath();
}

int openTemporary(QByteArray &name) {
    return ::mkostemp(name.data(), O_CLOEXEC); // mode 0600
}

} // namespace

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
    const QFileInfo info(path);
    QFile file(path);
    Contents contents;
    contents.exists = info.exists();
    if (!contents.exists) {
        return contents;
    }
    if (!info.isFile()) { // a pipe would wait for a writer
        contents.error = QStringLiteral("it is not a file");
    } else if (info.size() > maxBytes) {
        contents.error = QStringLiteral("it is larger than 64 MiB");
    } else {
        if (file.open(QIODevice::ReadOnly)) {
            contents.bytes = file.readAll();
        }
        if (file.error() != QFileDevice::NoError) {
            contents.error = file.errorString();
        }
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
    QString aside;
    int number = 0;
    do {
        aside = QStringLiteral("%1.kept-%2").arg(path).arg(++number);
    } while (QFileInfo::exists(aside));
    // A folder and some file systems allow no second name.
    const bool done =
        ::link(QFile::encodeName(path).constData(), QFile::encodeName(aside).constData()) == 0 ||
        QFile::rename(path, aside);
    return done ? std::optional(aside) : std::nullopt;
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
