#include "WaylandPanelHost.h"

#include "PanelWindow.h"
#include "ScreenSpace.h"
#include "WaylandDisplays.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QQuickItem>
#include <QQuickWindow>

#include <utility>

namespace perchly {

namespace {

// Placing the panel below a resting pointer makes the pointer enter it within this time.
constexpr qint64 entryMilliseconds = 50;
// Between two of our windows, no window has the keyboard for less than this time.
constexpr std::chrono::milliseconds focusDelay{60};
// By then, another program's menu has closed. While one is open, sway gives the keyboard to no one.
constexpr std::chrono::milliseconds menuDelay{200};
// How long the compositor may take to give the keyboard to the panel.
constexpr std::chrono::milliseconds grantTimeout{600};

QRect geometryOf(const ScreenRect &frame, const QMarginsF &margins) {
    QRect geometry = ScreenSpace::current().toQt(frame);
    geometry.setSize(geometry.size().expandedTo(QSize(1, 1)));
    return geometry.marginsAdded(margins.toMargins());
}

QQuickItem *contentOf(QWindow &panel) {
    return static_cast<QQuickWindow &>(panel).contentItem();
}

} // namespace

WaylandPanelHost::WaylandPanelHost(std::shared_ptr<WaylandConnection> connection,
                                   WaylandDisplays &displays)
    : m_connection(std::move(connection))
    , m_displays(displays) {
    // Queued, so that the panel is in its new place.
    const auto catchAgain = [this] {
        if (m_holdsKeyboard) {
            catchPresses();
        }
    };
    connect(&displays, &Displays::changed, this, catchAgain, Qt::QueuedConnection);
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, [this](const QWindow *focused) {
        if (!m_holdsKeyboard && focused == m_panel) {
            refuseKeyboard();
        }
    });
    m_askAgain.setSingleShot(true);
    m_askAgain.setInterval(menuDelay);
    connect(&m_askAgain, &QTimer::timeout, this, [this] {
        if (lacksKeyboard()) {
            m_role->setKeyboard(LayerSurface::Keyboard::None);
            m_role->setKeyboard(LayerSurface::Keyboard::Exclusive);
        }
    });
    m_grant.setSingleShot(true);
    m_grant.setInterval(grantTimeout);
    connect(&m_grant, &QTimer::timeout, this, [this] {
        if (lacksKeyboard() && WaylandConnection::hasKeyboard()) {
            Q_EMIT keyboardRefused();
        }
    });
}

void WaylandPanelHost::attach(QWindow *panel) {
    m_panel = panel;
    preparePanel(*panel);
    panel->setProperty("nestsToolTips", true);
    m_role = std::make_unique<LayerSurface>(*m_connection, *panel, "perchly",
                                            LayerSurface::Layer::Overlay);
    // Not from within the event that closed it.
    connect(m_role.get(), &LayerSurface::closed, this, &WaylandPanelHost::putAgain,
            Qt::QueuedConnection);
    connect(static_cast<QQuickWindow *>(panel), &QQuickWindow::frameSwapped, m_role.get(),
            &LayerSurface::handleFrame);
    panel->installEventFilter(this);
}

void WaylandPanelHost::place(const ScreenRect &frame, const QMarginsF &margins) {
    const QRect geometry = geometryOf(frame, margins);
    drop();
    if (geometry != m_geometry || m_role->screen() == nullptr) {
        const QRect before = m_geometry;
        const bool isResized =
            geometry.size() != before.size() && m_role->screen() == screenAt(geometry);
        m_geometry = geometry;
        put();
        m_before = isResized && !m_pointer ? before : QRect();
    }
}

void WaylandPanelHost::put() {
    QScreen *screen = screenAt(m_geometry);
    if (screen == nullptr) {
        return; // until a display is attached
    }
    m_placed.start();
    m_before = QRect();
    m_role->place(*screen, m_geometry.translated(-screen->geometry().topLeft()), m_origin);
    m_panel->setVisible(m_isShown);
}

void WaylandPanelHost::setOverPanels(bool over) {
    m_displays.setOverPanels(over);
    const auto origin = over ? LayerSurface::Origin::Display : LayerSurface::Origin::FreeArea;
    if (std::exchange(m_origin, origin) != origin && m_role->screen() != nullptr) {
        put();
    }
}

void WaylandPanelHost::carry(const ScreenRect &frame, const QMarginsF &margins) {
    const QRect geometry = geometryOf(frame, margins);
    QScreen *screen = screenAt(geometry);
    if (screen == nullptr) {
        return;
    }
    if (!m_ghost || m_ghost->display() != screen) {
        const QRect area = m_origin == LayerSurface::Origin::Display ? screen->geometry()
                                                                     : m_displays.freeArea(*screen);
        m_ghost = std::make_unique<DragGhost>(*m_connection, *screen, area, m_origin);
    }
    m_ghost->setPlace(geometry);
    if (m_geometry.size() != geometry.size()) {
        m_geometry.setSize(geometry.size());
        put();
    }
    contentOf(*m_panel)->setOpacity(0);
    takePicture();
}

/// Also paints what changes in the panel, such as its collapse.
void WaylandPanelHost::takePicture() {
    if (m_picture || !m_ghost) {
        return;
    }
    const double ratio = m_ghost->devicePixelRatio();
    m_picture = contentOf(*m_panel)->childItems().constFirst()->grabToImage(
        (QSizeF(m_geometry.size()) * ratio).toSize());
    if (!m_picture) {
        return;
    }
    connect(m_picture.get(), &QQuickItemGrabResult::ready, this, [this] {
        const QImage picture = std::exchange(m_picture, {})->image();
        if (m_ghost && m_ghost->setPicture(picture)) {
            takePicture();
        }
    });
}

void WaylandPanelHost::drop() {
    if (m_ghost) {
        m_ghost.reset();
        contentOf(*m_panel)->setOpacity(1);
    }
}

void WaylandPanelHost::markPlace(const ScreenRect &frame) {
    if (m_ghost) {
        m_ghost->setShade(ScreenSpace::current().toQt(frame));
    }
}

void WaylandPanelHost::putAgain() {
    setPointer(std::nullopt);
    if (QQuickItem *held = static_cast<QQuickWindow &>(*m_panel).mouseGrabberItem()) {
        held->ungrabMouse(); // its release goes elsewhere
    }
    put();
}

QScreen *WaylandPanelHost::screenAt(const QRect &geometry) {
    QScreen *found = QGuiApplication::screenAt(geometry.center());
    found = found != nullptr ? found : QGuiApplication::primaryScreen();
    return WaylandConnection::outputOf(*found) != nullptr ? found : nullptr;
}

void WaylandPanelHost::orderFront() {
    m_isShown = true;
    if (m_role->screen() != nullptr) {
        m_panel->show(); // always above ordinary windows
    }
}

void WaylandPanelHost::setShape(const QRegion &shape) {
    const double toPoints = 1 / m_panel->devicePixelRatio();
    m_shape = QTransform::fromScale(toPoints, toPoints).map(shape);
    m_role->setInputRegion(m_shape);
}

void WaylandPanelHost::takeKeyboard() {
    m_holdsKeyboard = true;
    m_heldKeyboard = true;
    m_role->setKeyboard(LayerSurface::Keyboard::Exclusive);
    catchPresses();
    m_askAgain.start();
    m_grant.start();
}

bool WaylandPanelHost::lacksKeyboard() const {
    return m_holdsKeyboard && !hasKeyboard();
}

/// Compositors leave the keyboard to the panel when another window is pressed.
void WaylandPanelHost::catchPresses() {
    m_catchers.clear();
    const QRegion panel = m_shape.translated(m_geometry.topLeft());
    const QList<QScreen *> screens = QGuiApplication::screens();
    for (QScreen *screen : screens) {
        const QRect area = m_displays.freeArea(*screen);
        const QRegion free = panel.translated(-screen->geometry().topLeft());
        if (m_origin == LayerSurface::Origin::Display || area == screen->geometry()) {
            catchPresses(PressCatcher::Place::Display, *screen, screen->geometry().size(), free);
        } else {
            catchPresses(PressCatcher::Place::Panels, *screen, screen->geometry().size(), {});
            catchPresses(PressCatcher::Place::FreeArea, *screen, area.size(), free);
        }
    }
}

void WaylandPanelHost::catchPresses(PressCatcher::Place place, QScreen &screen, QSize size,
                                    const QRegion &free) {
    auto catcher = std::make_unique<PressCatcher>(*m_connection, screen, place, size, free);
    connect(catcher.get(), &PressCatcher::pressed, this, &WaylandPanelHost::handlePressElsewhere,
            Qt::QueuedConnection);
    m_catchers.push_back(std::move(catcher));
}

void WaylandPanelHost::handlePressElsewhere() {
    if (m_isMenuOpen) {
        Q_EMIT pressedBesideMenu();
    } else {
        loseKeyboard();
    }
}

void WaylandPanelHost::loseKeyboard() {
    giveKeyboardBack();
    Q_EMIT keyboardLost();
}

void WaylandPanelHost::giveKeyboardBack() {
    m_catchers.clear();
    m_role->setKeyboard(LayerSurface::Keyboard::None);
    if (std::exchange(m_holdsKeyboard, false)) {
        refuseKeyboard();
    }
}

/// KWin 5.27 lets a surface that once wanted the keyboard keep it, or gives it back to it later.
void WaylandPanelHost::refuseKeyboard() {
    QTimer::singleShot(focusDelay, this, [this] {
        if (!m_holdsKeyboard && hasKeyboard() && std::exchange(m_heldKeyboard, false)) {
            m_role->release();
            put();
        }
    });
}

/// The menu needs the keyboard, and the surfaces that catch presses elsewhere.
void WaylandPanelHost::setMenuOpen(bool open) {
    m_isMenuOpen = open;
    if (open && !m_holdsKeyboard) {
        m_menuTookKeyboard = true;
        takeKeyboard();
    } else if (std::exchange(m_menuTookKeyboard, false)) {
        giveKeyboardBack();
    }
}

void WaylandPanelHost::setCapturing(bool capturing) {
    m_role->setLayer(capturing ? LayerSurface::Layer::Top : LayerSurface::Layer::Overlay);
}

bool WaylandPanelHost::hasKeyboard() const {
    return m_panel->isActive();
}

void WaylandPanelHost::activate(QWindow *window) {
    giveKeyboardBack();
    if (!window->isActive()) {
        window->hide(); // of windows without an activation token, only new ones come to the front
    }
    window->setWindowStates(window->windowStates() & ~Qt::WindowMinimized);
    window->show();
    window->raise();
    window->requestActivate();
}

ScreenPoint WaylandPanelHost::toScreen(QPointF point) const {
    const QPointF inPanel = point - m_panel->position();
    return ScreenSpace::current().fromQt(m_geometry.topLeft() + inPanel + QPointF(0, 1));
}

bool WaylandPanelHost::eventFilter(QObject *watched, QEvent *event) {
    switch (event->type()) {
    case QEvent::Enter:
        enter(static_cast<QEnterEvent *>(event)->position());
        break;
    case QEvent::MouseButtonRelease:
        m_isPressed = false;
        break;
    case QEvent::MouseButtonPress:
        m_isPressed = true;
        [[fallthrough]];
    case QEvent::MouseMove:
        setPointer(static_cast<QMouseEvent *>(event)->position());
        break;
    case QEvent::DragEnter:
    case QEvent::DragMove:
        m_isDraggedOver = true;
        setPointer(static_cast<QDropEvent *>(event)->position());
        break;
    case QEvent::DragLeave:
    case QEvent::Drop:
        m_isDraggedOver = false;
        setPointer(std::nullopt); // an Enter follows a drop
        break;
    case QEvent::FocusOut:
        // At once: sway 1.7 returns it when the screen is locked.
        if (lacksKeyboard()) {
            QMetaObject::invokeMethod(
                this,
                [this] {
                    Q_EMIT pressedBesideMenu();
                    loseKeyboard();
                },
                Qt::QueuedConnection);
        }
        break;
    case QEvent::Leave:
        if (m_ghost) { // the press has ended without a release, as when a display changes
            if (QQuickItem *held = static_cast<QQuickWindow &>(*m_panel).mouseGrabberItem()) {
                held->ungrabMouse();
            }
        }
        setPointer(std::nullopt);
        break;
    default:
        break;
    }
    return PanelHost::eventFilter(watched, event);
}

void WaylandPanelHost::enter(QPointF inPanel) {
    const bool mayRest = m_placed.isValid() && !m_placed.hasExpired(entryMilliseconds);
    if (!mayRest || m_before.contains((m_geometry.topLeft() + inPanel).toPoint())) {
        setPointer(inPanel);
    }
}

void WaylandPanelHost::setPointer(std::optional<QPointF> inPanel) {
    std::optional<ScreenPoint> pointer;
    m_isPressed = m_isPressed && inPanel;
    if (inPanel) {
        pointer = ScreenSpace::current().fromQt(m_geometry.topLeft() + *inPanel + QPointF(0, 1));
    }
    if (std::exchange(m_pointer, pointer) != pointer) {
        Q_EMIT pointerMoved();
    }
}

} // namespace perchly
