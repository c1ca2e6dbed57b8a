#include "SymbolIcon.h"

#include "SymbolTable.h"

#include <QPainter>
#include <QPixmap>

namespace perchly {

QIcon symbolIcon(const QString &name, const QColor &colour) {
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
        // A margin of one sixteenth keeps the symbol clear of its neighbours.
        const qreal scale = side * 0.875 / std::max(bounds.width(), bounds.height());
        // Mapped first: a path this small is flattened too coarsely by the painter's own scale.
        const QTransform toPixels =
            QTransform::fromTranslate(-bounds.center().x(), -bounds.center().y()) *
            QTransform::fromScale(scale, scale) * QTransform::fromTranslate(side / 2.0, side / 2.0);
        painter.fillPath(toPixels.map(outline), colour);
        painter.end();
        icon.addPixmap(pixmap);
    }
    return icon;
}

} // namespace perchly
