#include "ClipPicture.h"

#include "CopiedPicture.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QImageReader>
#include <QMutex>
#include <QPainter>
#include <QQuickWindow>
#include <QThreadPool>

#include <algorithm>

namespace perchly {

ClipPicture::ClipPicture(QQuickItem *parent)
    : QQuickPaintedItem(parent) {
    connect(this, &ClipPicture::clipChanged, this, [this] {
        m_maxSize = QSize();
        decode();
    });
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

void ClipPicture::componentComplete() {
    QQuickPaintedItem::componentComplete();
    decode();
}

void ClipPicture::geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry) {
    QQuickPaintedItem::geometryChange(newGeometry, oldGeometry);
    decode();
}

void ClipPicture::itemChange(ItemChange change, const ItemChangeData &data) {
    QQuickPaintedItem::itemChange(change, data);
    if (change == ItemSceneChange || change == ItemDevicePixelRatioHasChanged) {
        decode();
    }
}

void ClipPicture::decode() {
    if (!isComponentComplete() || window() == nullptr) {
        return;
    }
    const QSize maxSize = (size() * window()->effectiveDevicePixelRatio()).toSize();
    if (maxSize == m_maxSize) {
        return;
    }
    m_maxSize = maxSize;
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

void ClipPicture::show(const QImage &picture) {
    m_picture = picture;
    update();
    Q_EMIT foundChanged();
}

void ClipPicture::paint(QPainter *painter) {
    if (m_picture.isNull()) {
        return;
    }
    QRectF place(QPointF(), QSizeF(m_picture.size()).scaled(size(), Qt::KeepAspectRatio));
    place.moveCenter(boundingRect().center());
    painter->setRenderHint(QPainter::SmoothPixmapTransform);
    painter->drawImage(place, m_picture);
}

} // namespace perchly
