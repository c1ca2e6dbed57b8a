#include "WholeFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>

#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

namespace perchly::wholefile {

Contents read(const QString &path) {
    QFile file(path);
    Contents contents{.exists = file.exists(), .bytes = {}, .error = {}};
    if (contents.exists && file.open(QIODevice::ReadOnly)) {
        contents.bytes = file.readAll();
    }
    if (contents.exists && file.error() != QFileDevice::NoError) {
        contents.error = file.errorString();
    }
    return contents;
}

QString replace(const QString &path, const QByteArray &bytes, Durability durability) {
    const QString linked = QFileInfo(path).canonicalFilePath();
    const QString target = linked.isEmpty() ? path : linked;
    const QString folder = QFileInfo(target).absolutePath();
    if (!QFileInfo::exists(folder)) {
        QDir().mkpath(QFileInfo(folder).absolutePath());
        QDir().mkdir(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    // Not QSaveFile, which always waits for the disk.
    QTemporaryFile file(target + QStringLiteral(".tmp-XXXXXX"));
    if (!file.open() || file.write(bytes) != bytes.size() || !file.flush()) {
        return file.errorString();
    }
    if ((durability == Durability::Disk && ::fsync(file.handle()) != 0) ||
        std::rename(QFile::encodeName(file.fileName()).constData(),
                    QFile::encodeName(target).constData()) != 0) {
        return qt_error_string();
    }
    file.setAutoRemove(false);
    return {};
}

QString flush(const QString &path) {
    const int file = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
    const bool done = file >= 0 && ::fsync(file) == 0;
    QString error = done ? QString() : qt_error_string();
    if (file >= 0) {
        ::close(file);
    }
    return error;
}

std::optional<QString> setAside(const QString &path) {
    QString aside;
    int number = 0;
    do {
        aside = path + QStringLiteral(".kept-") + QString::number(++number);
    } while (QFileInfo::exists(aside));
    // Folders and some file systems allow no hard links.
    const bool done =
        ::link(QFile::encodeName(path).constData(), QFile::encodeName(aside).constData()) == 0 ||
        QFile::rename(path, aside);
    return done ? std::optional(aside) : std::nullopt;
}

} // namespace perchly::wholefile
