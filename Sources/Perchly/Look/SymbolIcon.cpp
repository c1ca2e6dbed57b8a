#include "SymbolIcon.h"

#include "SymbolTable.h"

#include <QPainter>
#include <QPixmap>

#include <cmath>

namespace perchly {

namespace {

// As a fraction of the side.
constexpr double plateMargin = 1 / 16.0;
constexpr double plateRadius = 0.22;
constexpr double symbolSide = 0.625;

void paintPlate(QPainter &painter, int side) {
    // In whole pixels, so that a small plate has sharp edges.
    const double margin = std::round(side * plateMargin);
    QLinearGradient body(0, 0, 0, side);
    body.setColorAt(0, QColor(0x20, 0x24, 0x2b));
    body.setColorAt(1, QColor(0x06, 0x07, 0x08));
    painter.setPen(Qt::NoPen);
    painter.setBrush(body);
    painter.drawRoundedRect(QRectF(0, 0, side, side).adjusted(margin, margin, -margin, -margin),
                            side * plateRadius, side * plateRadius);
}

} // namespace

QIcon platedSymbolIcon(const QString &name) {
    const QPainterPath outline = SymbolTable::outline(name);
    if (outline.isEmpty()) {
        return {};
    }
    const QRectF bounds = outline.boundingRect();
    QIcon icon;
    for (const int side : {16, 22, 24, 32, 48, 64}) {
        QPixmap pixmap(side, side);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        painter.setRenderHint(QPainter::Antialiasing);
        paintPlate(painter, side);
        const qreal scale = side * symbolSide / std::max(bounds.width(), bounds.height());
        // Scaled here, as QPainter would flatten such a small path too coarsely.
        const QTransform toPixels =
            QTransform::fromTranslate(-bounds.center().x(), -bounds.center().y()) *
            QTransform::fromScale(scale, scale) * QTransform::fromTranslate(side / 2.0, side / 2.0);
        painter.fillPath(toPixels.map(outline), Qt::white);
        painter.end();
        icon.addPixmap(pixmap);
    }
    return icon;
}

} // namespace perchly
