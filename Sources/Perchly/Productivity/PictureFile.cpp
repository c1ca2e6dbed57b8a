#include "PictureFile.h"

#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>

namespace perchly::picturefile {

namespace {

constexpr qint64 maxFileBytes = 256 << 20;

} // namespace

bool isPicture(const QString &path) {
    const QFileInfo file(path);
    if (!file.isFile() || file.size() > maxFileBytes) {
        return false; // opening a pipe would block
    }
    QImageReader reader(path);
    reader.setDecideFormatFromContent(true);
    return reader.canRead();
}

QByteArray asPng(const QString &path) {
    if (!isPicture(path)) {
        return {};
    }
    QImageReader reader(path);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    const QByteArray format = reader.format();
    const QImage picture = reader.read();
    if (picture.isNull()) {
        return {};
    }
    if (format == "png") {
        QFile file(path); // unchanged, with its metadata
        return file.open(QIODevice::ReadOnly) ? file.read(maxFileBytes) : QByteArray();
    }
    QByteArray encoded;
    QBuffer buffer(&encoded);
    buffer.open(QIODevice::WriteOnly);
    picture.save(&buffer, "PNG");
    return encoded;
}

} // namespace perchly::picturefile
