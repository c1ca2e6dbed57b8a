#pragma once

#include "XcbConnection.h"

#include <QRasterWindow>

namespace perchly {

/// Paints that shape.
void paintDockShade(QPainter &painter, const QRectF &place);

/// A translucent shape that shows where the panel will be docked; a frame without a compositor.
/// Clicks pass through it. Shown at once, below the panel. Main thread only.
class DockShade : public QRasterWindow {
public:
    DockShade(XcbConnection &connection, xcb_window_t panel, const QRect &geometry,
              bool isComposited);

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    bool m_isComposited;
};

} // namespace perchly
