#pragma once

#include <QByteArray>
#include <QList>
#include <QMimeData>
#include <QString>
#include <QUrl>

namespace perchly {

/// A copied image in the formats that other programs ask for.
struct CopiedImage {
    QByteArray png;  ///< empty if the image is neither a PNG nor a TIFF that decodes
    QByteArray tiff; ///< empty until requested, unless the image was a TIFF
};

/// Decodes a TIFF and encodes it as a PNG, which may take long. Any thread.
[[nodiscard]] CopiedImage copiedImage(const QByteArray &encoded);

/// Data that Perchly copies, marked as its own.
class OwnCopy : public QMimeData {
public:
    explicit OwnCopy(const QString &text);
    explicit OwnCopy(const CopiedImage &image);
    /// Files and links, and as text their paths and links, one per line.
    explicit OwnCopy(const QList<QUrl> &items);

protected:
    [[nodiscard]] QVariant retrieveData(const QString &mimeType, QMetaType type) const override;

private:
    OwnCopy();
    void setTextForms(const QString &text);

    mutable QByteArray m_tiff; ///< empty until requested, then kept, as encoding takes long
};

} // namespace perchly
