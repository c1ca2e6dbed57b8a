#include "DrawnSymbol.h"

#include "SymbolTable.h"

#include <QPainter>

namespace perchly {

DrawnSymbol::DrawnSymbol(QQuickItem *parent)
    : QQuickPaintedItem(parent) {
    setAntialiasing(true);
}

void DrawnSymbol::setName(const QString &name) {
    if (m_name != name) {
        m_name = name;
        Q_EMIT nameChanged();
        update();
    }
}

void DrawnSymbol::setColor(const QColor &color) {
    if (m_color != color) {
        m_color = color;
        Q_EMIT colorChanged();
        update();
    }
}

void DrawnSymbol::paint(QPainter *painter) {
    painter->scale(width(), height());
    painter->fillPath(SymbolTable::outline(m_name), m_color);
}

} // namespace perchly
