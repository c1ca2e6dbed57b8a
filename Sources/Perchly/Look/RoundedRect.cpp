#include "RoundedRect.h"

#include <QPainter>

namespace perchly {

RoundedRect::RoundedRect(QQuickItem *parent)
    : QQuickPaintedItem(parent) {
    setAntialiasing(true);
}

void RoundedRect::setColor(const QColor &color) {
    if (m_color != color) {
        m_color = color;
        Q_EMIT colorChanged();
        update();
    }
}

void RoundedRect::setBottomColor(const QColor &color) {
    if (m_bottomColor != color) {
        m_bottomColor = color;
        Q_EMIT bottomColorChanged();
        update();
    }
}

void RoundedRect::setRadius(double radius) {
    if (m_radius != radius) {
        m_radius = radius;
        Q_EMIT radiusChanged();
        update();
    }
}

void RoundedRect::paint(QPainter *painter) {
    painter->setPen(Qt::NoPen);
    if (m_bottomColor.isValid()) {
        QLinearGradient colors(boundingRect().topLeft(), boundingRect().bottomLeft());
        colors.setColorAt(0, m_color);
        colors.setColorAt(1, m_bottomColor);
        painter->setBrush(colors);
    } else {
        painter->setBrush(m_color);
    }
    painter->drawRoundedRect(boundingRect(), m_radius, m_radius);
}

} // namespace perchly
