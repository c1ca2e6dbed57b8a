#pragma once

#include <QObject>
#include <QPointer>
#include <QRect>
#include <QScreen>
#include <QWindow>

struct wl_surface;
struct zwlr_layer_surface_v1;

namespace perchly {

class WaylandConnection;

/// Gives a window the role of a layer surface: it has a place on one display and lies above
/// ordinary windows. Qt gives the window no role of its own because of Qt::BypassWindowManagerHint,
/// if QT_WAYLAND_USE_BYPASSWINDOWMANAGERHINT is 1 in the environment. Main thread only.
class LayerSurface : public QObject {
    Q_OBJECT
public:
    /// Top is below full-screen windows, Overlay above them.
    enum class Layer { Top = 2, Overlay = 3 };
    enum class Keyboard { None = 0, Exclusive = 1 };
    /// Whether the place counts from the display's edges or from the area that panels leave free.
    enum class Origin { Display = -1, FreeArea = 0 };

    /// Both must outlive it.
    LayerSurface(WaylandConnection &connection, QWindow &window, const char *scope, Layer layer);
    ~LayerSurface() override;

    /// Moves the window to the frame, in points (y down) from the origin on that display. Creates
    /// the window first if there is none yet or it is on another display; show() it then. Blocks
    /// until the compositor knows a new window.
    void place(QScreen &screen, const QRect &frame, Origin origin);

    [[nodiscard]] QScreen *screen() const { return m_screen; }

    void setKeyboard(Keyboard keyboard);

    /// Destroys the window's surface, as when its display is gone; place() makes a new one.
    void release();

Q_SIGNALS:
    /// The compositor closed the surface: the display is gone, or its shell wants it closed.
    /// release() it.
    void closed();

private:
    struct Listener;

    void realize();
    void tellQt();
    void send();
    void commit() const;

    WaylandConnection &m_connection;
    QWindow &m_window;
    QByteArray m_scope;
    Layer m_layer;
    QPointer<QScreen> m_screen;
    QRect m_frame;
    Origin m_origin = Origin::Display;
    Keyboard m_keyboard = Keyboard::None;
    zwlr_layer_surface_v1 *m_role = nullptr;
    wl_surface *m_surface = nullptr;
    bool m_isConfigured = false;
};

} // namespace perchly
