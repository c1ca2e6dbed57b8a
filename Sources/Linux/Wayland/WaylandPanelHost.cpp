#include "WaylandPanelHost.h"

#include "PanelWindow.h"
#include "ScreenSpace.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QTimer>

#include <utility>

namespace perchly {

namespace {

// Placing the panel below a resting pointer makes the pointer enter it within this time.
constexpr qint64 entryMilliseconds = 50;
// Between two of our windows, no window has the keyboard for less than this time.
constexpr std::chrono::milliseconds focusDelay{60};

} // namespace

WaylandPanelHost::WaylandPanelHost() {
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, [this](const QWindow *focused) {
        if (m_holdsKeyboard && focused != m_panel) {
            QTimer::singleShot(focusDelay, this, [this] {
                if (m_holdsKeyboard && !m_isMenuOpen && !hasKeyboard()) {
                    loseKeyboard();
                }
            });
        }
    });
}

void WaylandPanelHost::attach(QWindow *panel) {
    m_panel = panel;
    preparePanel(*panel);
    m_role = std::make_unique<LayerSurface>(m_connection, *panel, "perchly",
                                            LayerSurface::Layer::Overlay);
    // Not from within the event that closed it.
    connect(m_role.get(), &LayerSurface::closed, this, &WaylandPanelHost::putAgain,
            Qt::QueuedConnection);
    panel->installEventFilter(this);
}

void WaylandPanelHost::place(const ScreenRect &frame, const QMarginsF &margins) {
    QRect geometry = ScreenSpace::current().toQt(frame);
    geometry.setSize(geometry.size().expandedTo(QSize(1, 1)));
    geometry = geometry.marginsAdded(margins.toMargins());
    if (geometry != m_geometry || m_role->screen() == nullptr) {
        m_geometry = geometry;
        put();
    }
}

void WaylandPanelHost::put() {
    QScreen *screen = screenAt(m_geometry);
    if (screen == nullptr || WaylandConnection::outputOf(*screen) == nullptr) {
        return; // until a display is attached
    }
    m_placed.start();
    m_role->place(*screen, m_geometry.translated(-screen->geometry().topLeft()),
                  LayerSurface::Origin::Display);
    m_panel->setVisible(m_isShown);
}

void WaylandPanelHost::putAgain() {
    m_role->release();
    setPointer(std::nullopt);
    put();
}

QScreen *WaylandPanelHost::screenAt(const QRect &geometry) {
    QScreen *found = QGuiApplication::screenAt(geometry.center());
    return found != nullptr ? found : QGuiApplication::primaryScreen();
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
    m_panel->setMask(m_shape);
}

void WaylandPanelHost::takeKeyboard() {
    m_holdsKeyboard = true;
    m_role->setKeyboard(LayerSurface::Keyboard::Exclusive);
    catchPresses();
}

/// Compositors leave the keyboard to the panel when another window is pressed.
void WaylandPanelHost::catchPresses() {
    m_catchers.clear();
    const QRegion panel = m_shape.translated(m_geometry.topLeft());
    const QList<QScreen *> screens = QGuiApplication::screens();
    for (QScreen *screen : screens) {
        const QRegion free = panel.translated(-screen->geometry().topLeft());
        auto catcher = std::make_unique<PressCatcher>(m_connection, *screen, free);
        connect(catcher.get(), &PressCatcher::pressed, this, &WaylandPanelHost::loseKeyboard,
                Qt::QueuedConnection);
        m_catchers.push_back(std::move(catcher));
    }
}

void WaylandPanelHost::loseKeyboard() {
    giveKeyboardBack();
    Q_EMIT keyboardLost();
}

void WaylandPanelHost::giveKeyboardBack() {
    m_holdsKeyboard = false;
    m_catchers.clear();
    m_role->setKeyboard(LayerSurface::Keyboard::None);
}

bool WaylandPanelHost::hasKeyboard() const {
    return m_panel->isActive();
}

void WaylandPanelHost::activate(QWindow *window) {
    giveKeyboardBack();
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
        if (!m_placed.isValid() || m_placed.hasExpired(entryMilliseconds)) {
            setPointer(static_cast<QEnterEvent *>(event)->position());
        }
        break;
    case QEvent::MouseMove:
    case QEvent::MouseButtonPress:
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
    case QEvent::Leave:
        setPointer(std::nullopt);
        break;
    default:
        break;
    }
    return PanelHost::eventFilter(watched, event);
}

void WaylandPanelHost::setPointer(std::optional<QPointF> inPanel) {
    std::optional<ScreenPoint> pointer;
    if (inPanel) {
        pointer = ScreenSpace::current().fromQt(m_geometry.topLeft() + *inPanel + QPointF(0, 1));
    }
    if (std::exchange(m_pointer, pointer) != pointer) {
        Q_EMIT pointerMoved();
    }
}

} // namespace perchly
