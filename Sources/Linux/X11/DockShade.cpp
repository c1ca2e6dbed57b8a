#include "DockShade.h"

#include "PanelWindow.h"
#include "QtConnection.h"

#include <QPainter>

namespace perchly {

namespace {

constexpr double shadeRadius = 17;
constexpr int frameWidth = 2;

} // namespace

void paintDockShade(QPainter &painter, const QRectF &place) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(255, 255, 255, 170), frameWidth));
    painter.setBrush(QColor(0, 0, 0, 90));
    const double inset = frameWidth / 2.0;
    painter.drawRoundedRect(place.adjusted(inset, inset, -inset, -inset), shadeRadius - inset,
                            shadeRadius - inset);
}

DockShade::DockShade(XcbConnection &connection, xcb_window_t panel, const QRect &geometry,
                     bool isComposited)
    : m_isComposited(isComposited) {
    preparePanel(*this);
    setFlag(Qt::WindowTransparentForInput);
    setGeometry(geometry);
    create();
    const auto own = static_cast<xcb_window_t>(winId());
    describePanel(connection, own);
    const quint32 values[] = {panel, XCB_STACK_MODE_BELOW};
    xcb_configure_window(qtConnection(), own,
                         XCB_CONFIG_WINDOW_SIBLING | XCB_CONFIG_WINDOW_STACK_MODE, values);
    show();
}

void DockShade::resizeEvent(QResizeEvent *event) {
    QRasterWindow::resizeEvent(event);
    if (!m_isComposited) {
        const QRect whole(QPoint(), size());
        const QRect inner = whole.marginsRemoved(QMargins() + frameWidth);
        setMask(QRegion(whole) - inner);
    }
}

void DockShade::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(QRect(QPoint(), size()), m_isComposited ? Qt::transparent : Qt::white);
    if (m_isComposited) {
        paintDockShade(painter, QRectF(QPointF(), size()));
    }
}

} // namespace perchly
