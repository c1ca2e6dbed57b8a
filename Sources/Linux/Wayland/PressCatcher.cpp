#include "PressCatcher.h"

#include "PanelWindow.h"

#include <QPainter>
#include <QPaintEvent>

namespace perchly {

PressCatcher::PressCatcher(WaylandConnection &connection, QScreen &screen, Place place, QSize size,
                           const QRegion &free)
    : m_role(connection, *this, "perchly-outside",
             place == Place::Panels ? LayerSurface::Layer::Top : LayerSurface::Layer::Overlay) {
    preparePanel(*this);
    const QRect whole(QPoint(), size);
    m_role.place(screen, whole,
                 place == Place::FreeArea ? LayerSurface::Origin::FreeArea
                                          : LayerSurface::Origin::Display);
    m_role.setInputRegion(QRegion(whole) - free);
    connect(&m_role, &LayerSurface::closed, this, [this] { m_role.release(); });
    show();
}

void PressCatcher::paintEvent(QPaintEvent *event) {
    QPainter painter(this);
    painter.setCompositionMode(QPainter::CompositionMode_Clear);
    painter.fillRect(event->rect(), Qt::transparent);
}

void PressCatcher::mousePressEvent(QMouseEvent * /*event*/) {
    Q_EMIT pressed();
}

} // namespace perchly
