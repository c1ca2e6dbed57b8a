#include "SelectionImage.h"

#include <QBuffer>
#include <QImage>
#include <QImageReader>

namespace perchly {

namespace {

constexpr int quickly = 90; // a PNG's lightest compression; other formats have no choice

QByteArray encode(const QImage &image, const char *format) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    return image.save(&buffer, format, quickly) ? bytes : QByteArray();
}

void complete(QByteArray &form, const QByteArray &other, const char *format) {
    if (form.isEmpty()) {
        form = encode(QImage::fromData(other), format);
    }
}

} // namespace

std::optional<SelectionImage> decodedImage(const QByteArray &encoded) {
    QBuffer buffer;
    buffer.setData(encoded);
    QImageReader reader(&buffer);
    const QByteArray format = reader.format();
    const QImage image = reader.read();
    if (image.isNull()) {
        return std::nullopt;
    }
    if (format == "png") {
        return SelectionImage{.png = encoded};
    }
    if (format == "tiff") {
        return SelectionImage{.tiff = encoded};
    }
    return SelectionImage{.png = encode(image, "png")};
}

void completePng(SelectionImage &image) {
    complete(image.png, image.tiff, "png");
}

void completeTiff(SelectionImage &image) {
    complete(image.tiff, image.png, "tiff");
}

} // namespace perchly
