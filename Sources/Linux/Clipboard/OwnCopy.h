#pragma once

#include <QByteArray>
#include <QList>
#include <QMimeData>
#include <QString>
#include <QUrl>

namespace perchly {

/// An image as other programs ask for it.
struct CopiedImage {
    QByteArray png;  ///< empty if the image does not decode
    QByteArray tiff; ///< empty until it is asked for, unless the image was one
};

/// The image that the bytes encode. Takes as long as decoding and encoding do. Any thread.
[[nodiscard]] CopiedImage copiedImage(const QByteArray &encoded);

/// What this program copies, marked as its own.
class OwnCopy : public QMimeData {
public:
    explicit OwnCopy(const QString &text);
    explicit OwnCopy(const CopiedImage &image);
    /// Files and links, and as text their paths and links, one a line.
    explicit OwnCopy(const QList<QUrl> &items);

protected:
    [[nodiscard]] QVariant retrieveData(const QString &mimeType, QMetaType type) const override;

private:
    OwnCopy();
    void setTextForms(const QString &text);

    mutable QByteArray m_tiff; ///< kept, as encoding takes long; empty until it is asked for
};

} // namespace perchly
