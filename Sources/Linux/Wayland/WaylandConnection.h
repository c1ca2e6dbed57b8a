#pragma once

#include <QByteArray>

class QScreen;
class QWindow;
struct wl_compositor;
struct wl_display;
struct wl_event_queue;
struct wl_interface;
struct wl_output;
struct wl_proxy;
struct wl_shm;
struct wl_surface;
struct zwlr_layer_shell_v1;

namespace perchly {

/// Qt's connection to the compositor, with the protocols that Qt does not use. Needs a
/// QGuiApplication on Wayland. Main thread only.
class WaylandConnection {
public:
    WaylandConnection();
    ~WaylandConnection();
    WaylandConnection(const WaylandConnection &) = delete;
    WaylandConnection &operator=(const WaylandConnection &) = delete;

    /// Lets Qt choose now how to pass pictures to the compositor; it would do so at a later window.
    static void chooseBuffers();

    /// Null where the compositor has none.
    [[nodiscard]] zwlr_layer_shell_v1 *layerShell() const { return m_layerShell; }
    [[nodiscard]] unsigned layerShellVersion() const { return m_layerShellVersion; }

    [[nodiscard]] wl_compositor *compositor() const;
    [[nodiscard]] wl_shm *shm() const { return m_shm; }
    [[nodiscard]] static wl_surface *surfaceOf(QWindow &window);
    /// Null for the screen that Qt has while there is no display.
    [[nodiscard]] static wl_output *outputOf(QScreen &screen);

    /// Whether there is a keyboard, also one on the screen.
    [[nodiscard]] static bool hasKeyboard();

    /// Sends the buffered requests.
    void flush() const;

    /// Moves an object to a queue of our own, which waitFor() dispatches, or back to Qt's.
    enum class Queue { Own, Qt };
    void moveTo(Queue queue, wl_proxy *object) const;

    /// Binds a global in this version or an older one, with its events on the own queue; null if
    /// the compositor has none. Blocks until the compositor has listed its globals.
    [[nodiscard]] void *bind(const wl_interface &interface, unsigned maxVersion) const;

    /// Waits for events of the own queue, and dispatches them. False if the connection is broken.
    bool dispatch() const;

    /// Waits until the compositor has answered all requests, and dispatches the own queue. False if
    /// the connection is broken.
    bool roundtrip() const;

private:
    [[nodiscard]] static void *nativeResource(const QByteArray &name);

    wl_display *m_display;
    wl_event_queue *m_queue = nullptr;
    zwlr_layer_shell_v1 *m_layerShell = nullptr;
    unsigned m_layerShellVersion = 0;
    wl_shm *m_shm = nullptr;
};

} // namespace perchly
