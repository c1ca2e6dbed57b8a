#include "CaptureFile.h"

#include <QImageWriter>
#include <QSaveFile>

#include <sys/stat.h>

namespace perchly {

namespace {

constexpr int fastCompression = 85; // the toolkit's name for the library's lowest level

} // namespace

QString writeCapture(const QImage &picture, const QString &path) {
    umask(S_IRWXG | S_IRWXO); // from the first byte on
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        return file.errorString();
    }
    QImageWriter writer(&file, "png");
    writer.setQuality(fastCompression);
    if (!writer.write(picture)) {
        return writer.errorString();
    }
    return file.commit() ? QString() : file.errorString();
}

} // namespace perchly
