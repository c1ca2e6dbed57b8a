#include "FreeArea.h"

#include "PanelWindow.h"

#include <QPainter>

namespace perchly {

FreeArea::FreeArea(WaylandConnection &connection, QScreen &screen)
    : m_role(connection, *this, "perchly-area", LayerSurface::Layer::Background) {
    preparePanel(*this);
    m_role.setInputRegion(QRegion());
    connect(&m_role, &LayerSurface::sizeAssigned, this, &FreeArea::changed);
    m_role.fill(screen);
    show();
}

void FreeArea::paintEvent(QPaintEvent * /*event*/) {
    QPainter painter(this);
    painter.setCompositionMode(QPainter::CompositionMode_Clear);
    painter.fillRect(QRect(QPoint(), size()), Qt::transparent);
}

} // namespace perchly
