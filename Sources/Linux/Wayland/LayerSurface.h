#pragma once

#include <QObject>
#include <QPointer>
#include <QRect>
#include <QRegion>
#include <QScreen>
#include <QWindow>

#include <optional>

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
    enum class Layer { Background = 0, Top = 2, Overlay = 3 };
    enum class Keyboard { None = 0, Exclusive = 1 };
    /// Whether the place counts from the display's edges or from the area that panels leave free.
    enum class Origin { Display = -1, FreeArea = 0 };

    /// Both must outlive it.
    LayerSurface(WaylandConnection &connection, QWindow &window, const char *scope, Layer layer);
    ~LayerSurface() override;

    /// Moves the window to the frame, in points (y down) from the origin on that display. May
    /// destroy the window and create it again: show() it then. Blocks until the compositor knows a
    /// new window, or closes it, as when the display has just gone.
    void place(QScreen &screen, const QRect &frame, Origin origin);

    /// Fills the area that panels leave free, with a window of one point: for its size only.
    void fill(QScreen &screen);

    /// The size that the compositor last gave to the surface, in points.
    [[nodiscard]] QSize assignedSize() const { return m_assignedSize; }

    [[nodiscard]] QScreen *screen() const { return m_screen; }

    void setKeyboard(Keyboard keyboard);

    void setLayer(Layer layer);

    /// Limits input to the region, in points. Takes effect together with a new size, if that is
    /// still to be painted.
    void setInputRegion(const QRegion &region);

    /// The window has been painted.
    void handleFrame();

    /// Destroys the window; place() makes a new one.
    void release();

Q_SIGNALS:
    /// The display is gone, or the compositor closed the surface. The window is destroyed; place()
    /// makes a new one.
    void closed();
    void sizeAssigned();

private:
    struct Listener;

    void realize();
    void destroyRole();
    void tellQt();
    void send();
    void sendNow();
    void sendInputRegion();
    void commit() const;

    WaylandConnection &m_connection;
    QWindow &m_window;
    QByteArray m_scope;
    Layer m_layer;
    QPointer<QScreen> m_screen;
    QRect m_frame;
    Origin m_origin = Origin::Display;
    Keyboard m_keyboard = Keyboard::None;
    std::optional<QRegion> m_inputRegion;
    bool m_isResizing = false; ///< until it is painted in its new size
    zwlr_layer_surface_v1 *m_role = nullptr;
    wl_surface *m_surface = nullptr;
    QSize m_assignedSize; ///< invalid until the compositor knows the surface
};

} // namespace perchly
