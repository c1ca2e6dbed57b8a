#include "PictureView.h"

#include <QPainter>

namespace perchly {

void PictureView::show(const QImage &picture) {
    m_picture = picture;
    m_shown = {};
    update();
}

void PictureView::paintEvent(QPaintEvent *) {
    if (m_picture.isNull()) {
        return;
    }
    const QSize room = (QSizeF(size()) * devicePixelRatioF()).toSize();
    const QSize fitting = m_picture.size().scaled(room, Qt::KeepAspectRatio);
    const QSize wanted = fitting.boundedTo(m_picture.size()).expandedTo({1, 1});
    if (m_shown.size() != wanted) {
        m_shown = m_picture.scaled(wanted, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        m_shown.setDevicePixelRatio(devicePixelRatioF());
    }
    QRectF place(QPointF(), m_shown.deviceIndependentSize());
    place.moveCenter(QRectF(rect()).center());
    QPainter painter(this);
    painter.drawImage(place.topLeft().toPoint(), m_shown);
}

} // namespace perchly
