#include "PanelWindow.h"

#include "QtConnection.h"

#include <QRegion>
#include <QVariant>
#include <QWindow>
#include <xcb/shape.h>

namespace perchly {

namespace {

void setCardinals(xcb_window_t window, xcb_atom_t name, xcb_atom_t type,
                  const QList<quint32> &values) {
    xcb_change_property(qtConnection(), XCB_PROP_MODE_REPLACE, window, name, type, 32,
                        static_cast<quint32>(values.size()), values.constData());
}

QList<xcb_rectangle_t> rectanglesOf(const QRegion &shape) {
    QList<xcb_rectangle_t> result;
    for (const QRect &rect : shape) {
        result.append({static_cast<qint16>(rect.x()), static_cast<qint16>(rect.y()),
                       static_cast<quint16>(rect.width()), static_cast<quint16>(rect.height())});
    }
    return result;
}

void setShape(xcb_window_t window, xcb_shape_sk_t kind, const QList<xcb_rectangle_t> &rectangles) {
    xcb_shape_rectangles(qtConnection(), XCB_SHAPE_SO_SET, kind, XCB_CLIP_ORDERING_UNSORTED, window,
                         0, 0, static_cast<quint32>(rectangles.size()), rectangles.constData());
}

void removeShape(xcb_window_t window, xcb_shape_sk_t kind) {
    xcb_shape_mask(qtConnection(), XCB_SHAPE_SO_SET, kind, window, 0, 0, XCB_PIXMAP_NONE);
}

} // namespace

void preparePanel(QWindow &panel) {
    panel.setFlags(Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
                   Qt::BypassWindowManagerHint);
    panel.setProperty("_q_showWithoutActivating", true);
    QSurfaceFormat format = panel.requestedFormat();
    format.setAlphaBufferSize(8);
    panel.setFormat(format);
}

void describePanel(XcbConnection &connection, xcb_window_t panel) {
    // Compositors draw no shadow around a utility window with an alpha channel.
    setCardinals(panel, connection.atom("_NET_WM_WINDOW_TYPE"), XCB_ATOM_ATOM,
                 {connection.atom("_NET_WM_WINDOW_TYPE_UTILITY")});
    setCardinals(panel, connection.atom("_NET_WM_STATE"), XCB_ATOM_ATOM,
                 {connection.atom("_NET_WM_STATE_ABOVE"), connection.atom("_NET_WM_STATE_STICKY"),
                  connection.atom("_NET_WM_STATE_SKIP_TASKBAR"),
                  connection.atom("_NET_WM_STATE_SKIP_PAGER")});
    setCardinals(panel, connection.atom("_NET_WM_DESKTOP"), XCB_ATOM_CARDINAL, {0xffffffff});
    setCardinals(panel, connection.atom("_COMPTON_SHADOW"), XCB_ATOM_CARDINAL, {0});
    // Keeps old content at the top centre while the window grows, until it is repainted.
    const quint32 gravity = XCB_GRAVITY_NORTH;
    xcb_change_window_attributes(qtConnection(), panel, XCB_CW_BIT_GRAVITY, &gravity);
    xcb_flush(qtConnection());
}

void blurBehindPanel(XcbConnection &connection, xcb_window_t panel, const QRegion &region) {
    const xcb_atom_t name = connection.atom("_KDE_NET_WM_BLUR_BEHIND_REGION");
    if (region.isEmpty()) { // an empty property would blur all of the window
        xcb_delete_property(qtConnection(), panel, name);
        return;
    }
    QList<quint32> values;
    for (const QRect &rect : region) {
        values << quint32(rect.x()) << quint32(rect.y()) << quint32(rect.width())
               << quint32(rect.height());
    }
    setCardinals(panel, name, XCB_ATOM_CARDINAL, values);
}

void unshapePanel(xcb_window_t panel) {
    removeShape(panel, XCB_SHAPE_SK_INPUT);
    removeShape(panel, XCB_SHAPE_SK_BOUNDING);
}

void shapePanel(xcb_window_t panel, const QRegion &shape, Transparency transparency) {
    const QList<xcb_rectangle_t> rectangles = rectanglesOf(shape);
    setShape(panel, XCB_SHAPE_SK_INPUT, rectangles);
    if (transparency == Transparency::Missing) {
        setShape(panel, XCB_SHAPE_SK_BOUNDING, rectangles);
    } else {
        removeShape(panel, XCB_SHAPE_SK_BOUNDING);
    }
}

} // namespace perchly
