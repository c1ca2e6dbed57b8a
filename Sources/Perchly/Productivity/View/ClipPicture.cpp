#include "ClipPicture.h"

#include "CopiedPicture.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QImageReader>
#include <QMutex>
#include <QThreadPool>

#include <algorithm>

namespace perchly {

ClipPicture::ClipPicture(QQuickItem *parent)
    : FittedPicture(parent) {
    connect(this, &ClipPicture::clipChanged, this, [this] { reload(); });
}

QImage ClipPicture::decoded(const QByteArray &encoded, const QSize &maxSize) {
    const QByteArray format = copiedPictureFormat(encoded);
    if (format.isEmpty() || maxSize.isEmpty()) {
        return {};
    }
    // Decoding a picture of a few megabytes may take a hundred megabytes.
    static QMutex oneAtATime;
    const QMutexLocker lock(&oneAtATime);
    QBuffer buffer;
    buffer.setData(encoded);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, format);
    const QSize size = reader.size();
    if (size.isEmpty()) {
        return {};
    }
    if (size.width() > maxSize.width() || size.height() > maxSize.height()) {
        reader.setScaledSize(size.scaled(maxSize, Qt::KeepAspectRatio).expandedTo(QSize(1, 1)));
    }
    return reader.read();
}

QByteArray ClipPicture::encoded() const {
    if (!m_history) {
        return {};
    }
    const QList<Clip> &clips = m_history->clips();
    const auto found = std::ranges::find(clips, QUuid(m_clip), &Clip::id);
    return found != clips.cend() ? found->image : QByteArray();
}

void ClipPicture::load(const QSize &maxSize) {
    QThreadPool::globalInstance()->start(
        [bytes = encoded(), maxSize, number = ++m_number, item = QPointer(this)] {
            const QImage picture = decoded(bytes, maxSize);
            const auto finish = [picture, number, item] {
                if (item && number == item->m_number) {
                    item->show(picture);
                }
            };
            QMetaObject::invokeMethod(QCoreApplication::instance(), finish, Qt::QueuedConnection);
        });
}

} // namespace perchly
