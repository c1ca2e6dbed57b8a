#include "FittedPicture.h"

#include <QPainter>
#include <QQuickWindow>

namespace perchly {

void FittedPicture::componentComplete() {
    QQuickPaintedItem::componentComplete();
    loadIfResized();
}

void FittedPicture::geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry) {
    QQuickPaintedItem::geometryChange(newGeometry, oldGeometry);
    loadIfResized();
}

void FittedPicture::itemChange(ItemChange change, const ItemChangeData &data) {
    QQuickPaintedItem::itemChange(change, data);
    if (change == ItemSceneChange || change == ItemDevicePixelRatioHasChanged) {
        loadIfResized();
    }
}

void FittedPicture::reload() {
    m_maxSize = QSize();
    loadIfResized();
}

void FittedPicture::loadIfResized() {
    if (!isComponentComplete() || window() == nullptr) {
        return;
    }
    const QSize maxSize = (size() * window()->effectiveDevicePixelRatio()).toSize();
    if (maxSize != m_maxSize) {
        m_maxSize = maxSize;
        load(maxSize);
    }
}

void FittedPicture::show(const QImage &picture) {
    m_picture = picture;
    update();
    Q_EMIT foundChanged();
}

void FittedPicture::paint(QPainter *painter) {
    if (m_picture.isNull()) {
        return;
    }
    QRectF place(QPointF(), QSizeF(m_picture.size()).scaled(size(), Qt::KeepAspectRatio));
    place.moveCenter(boundingRect().center());
    painter->setRenderHint(QPainter::SmoothPixmapTransform);
    painter->drawImage(place, m_picture);
}

} // namespace perchly
