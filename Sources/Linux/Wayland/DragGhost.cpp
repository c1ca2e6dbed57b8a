#include "DragGhost.h"

#include "DockShade.h"
#include "PanelWindow.h"

#include <QPainter>
#include <QPaintEvent>

namespace perchly {

DragGhost::DragGhost(WaylandConnection &connection, QScreen &screen, const QRect &area,
                     LayerSurface::Origin origin)
    : m_area(area)
    , m_role(connection, *this, "perchly-drag", LayerSurface::Layer::Overlay) {
    preparePanel(*this);
    m_role.place(screen, area.translated(-screen.geometry().topLeft()), origin);
    m_role.setInputRegion(QRegion());
    show();
}

void DragGhost::setPlace(const QRect &place) {
    repaint(m_place, place.translated(-m_area.topLeft()));
}

bool DragGhost::setPicture(const QImage &picture) {
    if (picture == m_picture) {
        return false;
    }
    m_picture = picture;
    update(m_place);
    return true;
}

void DragGhost::setShade(const QRect &place) {
    repaint(m_shade, place.translated(-m_area.topLeft()));
}

void DragGhost::repaint(QRect &place, const QRect &now) {
    if (place != now) {
        update(QRegion(place) | now);
        place = now;
    }
}

void DragGhost::paintEvent(QPaintEvent *event) {
    QPainter painter(this);
    painter.setClipRegion(event->region());
    painter.setCompositionMode(QPainter::CompositionMode_Clear);
    painter.fillRect(event->rect(), Qt::transparent);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    if (!m_shade.isEmpty()) {
        paintDockShade(painter, m_shade);
    }
    painter.drawImage(m_place, m_picture);
}

} // namespace perchly
