#pragma once

#include "LayerSurface.h"

#include <QImage>
#include <QRasterWindow>

namespace perchly {

/// Shows the panel while it is dragged, and where it would be docked, on a transparent surface over
/// a whole display: the panel itself must stay, since positions of the held pointer count from it.
/// Clicks pass through. Main thread only.
class DragGhost : public QRasterWindow {
public:
    /// Both must outlive it. `area` is in Qt's points.
    DragGhost(WaylandConnection &connection, QScreen &screen, const QRect &area,
              LayerSurface::Origin origin);

    [[nodiscard]] QScreen *display() const { return m_role.screen(); }

    /// The picture's place, in Qt's points.
    void setPlace(const QRect &place);
    /// In pixels of the display. False if it is the same as before.
    bool setPicture(const QImage &picture);
    /// The shade's place, in Qt's points; empty for none.
    void setShade(const QRect &place);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void repaint(QRect &place, const QRect &now);

    QRect m_area;
    LayerSurface m_role;
    QRect m_place; ///< from here in the surface's points
    QRect m_shade;
    QImage m_picture;
};

} // namespace perchly
