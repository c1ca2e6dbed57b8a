#include "ClipPicture.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QImageReader>
#include <QMutex>
#include <QPainter>
#include <QQuickWindow>
#include <QThreadPool>

#include <algorithm>

namespace perchly {

namespace {

/// The other kinds of pictures that plug-ins could read are never copied into the history.
QByteArray formatOf(const QByteArray &encoded) {
    if (encoded.startsWith("\x89PNG")) {
        return "png";
    }
    const bool isTiff = encoded.startsWith(QByteArray::fromRawData("II*\0", 4)) ||
                        encoded.startsWith(QByteArray::fromRawData("MM\0*", 4));
    return isTiff ? QByteArray("tiff") : QByteArray();
}

} // namespace

ClipPicture::ClipPicture(QQuickItem *parent)
    : QQuickPaintedItem(parent) {}

QImage ClipPicture::decoded(const QByteArray &encoded, const QSize &largest) {
    const QByteArray format = formatOf(encoded);
    if (format.isEmpty() || largest.isEmpty()) {
        return {};
    }
    // A picture of a few megabytes may need a hundred while it is decoded.
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
    if (size.width() > largest.width() || size.height() > largest.height()) {
        reader.setScaledSize(size.scaled(largest, Qt::KeepAspectRatio).expandedTo(QSize(1, 1)));
    }
    return reader.read();
}

void ClipPicture::setTools(Productivity *tools) {
    m_tools = tools;
    Q_EMIT toolsChanged();
}

void ClipPicture::setClip(const QString &clip) {
    if (m_clip != clip) {
        m_clip = clip;
        m_largest = QSize();
        decode();
        Q_EMIT clipChanged();
    }
}

QByteArray ClipPicture::encoded() const {
    if (!m_tools) {
        return {};
    }
    const QList<Clip> &clips = m_tools->clips();
    const auto found = std::ranges::find(clips, QUuid(m_clip), &Clip::id);
    return found != clips.cend() ? found->image.value_or(QByteArray()) : QByteArray();
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
    const QSize largest = (size() * window()->effectiveDevicePixelRatio()).toSize();
    if (largest == m_largest) {
        return;
    }
    m_largest = largest;
    QThreadPool::globalInstance()->start(
        [bytes = encoded(), largest, number = ++m_number, item = QPointer(this)] {
            const QImage picture = decoded(bytes, largest);
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
