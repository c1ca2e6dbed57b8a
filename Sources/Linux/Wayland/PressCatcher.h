#pragma once

#include "LayerSurface.h"

#include <QRasterWindow>
#include <QRegion>

namespace perchly {

/// A transparent surface over a whole display. Reports a press of a mouse button outside an area
/// that it leaves to other surfaces. Main thread only.
class PressCatcher : public QRasterWindow {
    Q_OBJECT
public:
    /// The area is in points of the display. Both must outlive it.
    PressCatcher(WaylandConnection &connection, QScreen &screen, const QRegion &free);

Q_SIGNALS:
    void pressed();

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;

private:
    LayerSurface m_role;
};

} // namespace perchly
