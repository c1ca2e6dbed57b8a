#include "X11PanelHost.h"

#include "PanelWindow.h"
#include "QtConnection.h"
#include "ScreenSpace.h"

#include <QGuiApplication>
#include <QPlatformSurfaceEvent>
#include <QTimer>

namespace perchly {

namespace {

// After losing the active window, a window manager activates another one within this time.
constexpr std::chrono::milliseconds retakeDelay{60};
// How long a Wayland compositor may take to give the keyboard to a window of XWayland.
constexpr std::chrono::milliseconds grantTimeout{400};

void flushQt() {
    xcb_flush(qtConnection());
}

} // namespace

X11PanelHost::X11PanelHost() {
    m_grant.setSingleShot(true);
    m_grant.setInterval(grantTimeout);
    connect(&m_grant, &QTimer::timeout, this, [this] {
        if (m_holdsKeyboard && !hasKeyboard()) {
            Q_EMIT keyboardRefused();
        }
    });
    connect(&m_compositor, &SelectionWatch::changed, this, [this] {
        applyShape();
        Q_EMIT compositedChanged();
    });
    connect(&m_outsidePress, &OutsidePress::pressed, this, [this] {
        m_holdsKeyboard = false;
        m_focus.pressedOutside(panelId());
    });
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, [this](const QWindow *focused) {
        if (focused != m_panel) {
            QTimer::singleShot(retakeDelay, this, &X11PanelHost::checkKeyboard);
        }
    });
}

void X11PanelHost::attach(QWindow *panel) {
    m_panel = panel;
    preparePanel(*panel);
    panel->installEventFilter(this);
    connect(panel, &QWindow::screenChanged, this, &X11PanelHost::applyShape);
    panel->create();
}

void X11PanelHost::place(const ScreenRect &frame, const QMarginsF &margins) {
    QRect geometry = ScreenSpace::current().toQt(frame);
    geometry.setSize(geometry.size().expandedTo(QSize(1, 1))); // X has no empty windows
    geometry = geometry.marginsAdded(margins.toMargins());
    if (geometry == m_panel->geometry()) {
        return;
    }
    // Qt sends the new geometry at once. Until the new shape follows, the whole window takes the
    // pointer: otherwise a press in the new area but outside the old shape would be lost.
    if (geometry.size() != m_panel->size()) {
        m_shape.reset();
        unshapePanel(panelId());
    }
    m_panel->setGeometry(geometry);
}

void X11PanelHost::orderFront() {
    m_panel->show();
    flushQt();
    // The server may not have moved the window yet.
    const QRect geometry = m_panel->geometry();
    const QPoint origin = m_panel->screen()->geometry().topLeft();
    const double ratio = m_panel->devicePixelRatio();
    m_stacking.raise({origin + (geometry.topLeft() - origin) * ratio, geometry.size() * ratio});
}

void X11PanelHost::setShape(const QRegion &shape) {
    if (m_shape != shape) {
        m_shape = shape;
        applyShape();
    }
}

void X11PanelHost::setBlur(const QRegion &region) {
    blurBehindPanel(m_connection, panelId(), region);
    flushQt();
}

void X11PanelHost::takeKeyboard() {
    flushQt();
    m_holdsKeyboard = true;
    m_focus.take(panelId());
    m_outsidePress.watch(panelId());
    m_grant.start();
}

void X11PanelHost::giveKeyboardBack() {
    m_holdsKeyboard = false;
    m_outsidePress.watch(XCB_WINDOW_NONE);
    m_focus.giveBack(panelId());
}

void X11PanelHost::setMenuOpen(bool open) {
    m_outsidePress.watch(m_holdsKeyboard && !open ? panelId() : quint32{XCB_WINDOW_NONE});
}

void X11PanelHost::checkKeyboard() {
    if (m_holdsKeyboard) {
        m_focus.retakeFromNobody(panelId());
    }
    if (!hasKeyboard()) {
        Q_EMIT keyboardLost();
    }
}

bool X11PanelHost::hasKeyboard() const {
    return panelId() != XCB_WINDOW_NONE && m_focus.isAt(panelId());
}

void X11PanelHost::activate(QWindow *window) {
    m_holdsKeyboard = false;
    m_outsidePress.watch(XCB_WINDOW_NONE);
    if (window->windowStates().testFlag(Qt::WindowMinimized)) {
        window->setWindowStates(window->windowStates() & ~Qt::WindowMinimized);
    }
    window->show();
    window->raise();
    flushQt();
    m_focus.activate(static_cast<xcb_window_t>(window->winId()));
}

bool X11PanelHost::isComposited() const {
    return m_compositor.owner() != XCB_WINDOW_NONE;
}

ScreenPoint X11PanelHost::toScreen(QPointF point) const {
    return ScreenSpace::current().fromQt(point + QPointF(0, 1));
}

void X11PanelHost::markPlace(const ScreenRect &frame) {
    if (frame.width <= 0) {
        m_shade.reset();
        return;
    }
    const QRect geometry = ScreenSpace::current().toQt(frame);
    if (m_shade) {
        m_shade->setGeometry(geometry);
    } else {
        m_shade = std::make_unique<DockShade>(m_connection, panelId(), geometry, isComposited());
    }
}

bool X11PanelHost::eventFilter(QObject *watched, QEvent *event) {
    if (watched == m_panel && event->type() == QEvent::PlatformSurface &&
        static_cast<QPlatformSurfaceEvent *>(event)->surfaceEventType() ==
            QPlatformSurfaceEvent::SurfaceCreated) {
        prepareNativeWindow();
    }
    return PanelHost::eventFilter(watched, event);
}

void X11PanelHost::prepareNativeWindow() {
    describePanel(m_connection, panelId());
    applyShape();
    m_stacking.watch(panelId());
}

void X11PanelHost::applyShape() {
    if (panelId() == XCB_WINDOW_NONE || !m_shape) {
        return;
    }
    shapePanel(panelId(), *m_shape,
               isComposited() ? Transparency::Available : Transparency::Missing);
    flushQt();
}

quint32 X11PanelHost::panelId() const {
    return m_panel && m_panel->handle() ? static_cast<quint32>(m_panel->winId())
                                        : quint32{XCB_WINDOW_NONE};
}

} // namespace perchly
