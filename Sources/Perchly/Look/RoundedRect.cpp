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

void RoundedRect::setBorderColor(const QColor &color) {
    if (m_borderColor != color) {
        m_borderColor = color;
        Q_EMIT borderColorChanged();
        update();
    }
}

void RoundedRect::setBorderWidth(double width) {
    if (m_borderWidth != width) {
        m_borderWidth = width;
        Q_EMIT borderWidthChanged();
        update();
    }
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
