#pragma once

#include <QBuffer>
#include <QByteArray>
#include <QImage>

namespace perchly {

/// A picture of one colour in a file format.
inline QByteArray encodedPicture(const QSize &size, const char *format) {
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(Qt::green);
    QBuffer buffer;
    picture.save(&buffer, format);
    return buffer.data();
}

} // namespace perchly
