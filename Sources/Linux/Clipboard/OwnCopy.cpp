#include "OwnCopy.h"

#include "CopiedPicture.h"
#include "Pasteboard.h"

#include <QBuffer>
#include <QImage>
#include <QStringList>

namespace perchly {

namespace {

constexpr int lightestCompression = 90; // for PNG; TIFF has no levels

QByteArray encode(const QImage &image, const char *format) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    return image.save(&buffer, format, lightestCompression) ? bytes : QByteArray();
}

} // namespace

CopiedImage copiedImage(const QByteArray &encoded) {
    const QByteArray format = copiedPictureFormat(encoded);
    if (format == "png") {
        return {.png = encoded, .tiff = {}};
    }
    QImage image;
    if (format.isEmpty() || !image.loadFromData(encoded, format.constData())) {
        return {};
    }
    return {.png = encode(image, "png"), .tiff = encoded};
}

OwnCopy::OwnCopy() {
    setData(pasteboardtype::own, "1"); // some clipboard managers lose the first format
}

OwnCopy::OwnCopy(const QString &text)
    : OwnCopy() {
    setTextForms(text);
}

OwnCopy::OwnCopy(const CopiedImage &image)
    : OwnCopy() {
    setData(pasteboardtype::png, image.png);
    setData(pasteboardtype::tiff, image.tiff);
}

OwnCopy::OwnCopy(const QList<QUrl> &items)
    : OwnCopy() {
    QByteArray copiedFiles = "copy";
    QStringList lines;
    bool areFiles = true;
    for (const QUrl &item : items) {
        areFiles = areFiles && item.isLocalFile();
        copiedFiles += '\n' + item.toEncoded();
        lines.append(item.toString(QUrl::PreferLocalFile | QUrl::FullyEncoded));
    }
    setUrls(items);
    if (areFiles) {
        setData(QStringLiteral("x-special/gnome-copied-files"), copiedFiles);
        setData(QStringLiteral("x-special/mate-copied-files"), copiedFiles);
    }
    setTextForms(lines.join(u'\n'));
}

QVariant OwnCopy::retrieveData(const QString &mimeType, QMetaType type) const {
    const QVariant data = QMimeData::retrieveData(mimeType, type);
    if (mimeType == pasteboardtype::tiff && data.toByteArray().isEmpty() && hasFormat(mimeType)) {
        if (m_tiff.isEmpty()) {
            m_tiff = encode(QImage::fromData(this->data(pasteboardtype::png), "png"), "tiff");
        }
        return m_tiff;
    }
    return data;
}

void OwnCopy::setTextForms(const QString &text) {
    setData(pasteboardtype::text, text.toUtf8());
    setData(QStringLiteral("text/plain;charset=utf-8"), text.toUtf8());
}

} // namespace perchly
