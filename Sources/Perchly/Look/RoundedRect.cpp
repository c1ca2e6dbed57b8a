#include "RoundedRect.h"

#include <QPainter>

namespace perchly {

RoundedRect::RoundedRect(QQuickItem *parent)
    : QQuickPaintedItem(parent) {
    setAntialiasing(true);
    connect(this, &RoundedRect::changed, this, [this] { update(); });
}

void RoundedRect::paint(QPainter *painter) {
    const double inset = m_borderWidth / 2;
    const QRectF outline = boundingRect().adjusted(inset, inset, -inset, -inset);
    painter->setPen(m_borderWidth > 0 ? QPen(m_borderColor, m_borderWidth) : QPen(Qt::NoPen));
    if (m_bottomColor.isValid()) {
        QLinearGradient colors(outline.topLeft(), outline.bottomLeft());
        colors.setColorAt(0, m_color);
        colors.setColorAt(1, m_bottomColor);
        painter->setBrush(colors);
    } else {
        painter->setBrush(m_color);
    }
    painter->drawRoundedRect(outline, m_radius - inset, m_radius - inset);
}

} // namespace perchly
