#include "LayerSurface.h"

#include "WaylandConnection.h"
#include "wlr-layer-shell-unstable-v1-client.h"

#include <QGuiApplication>

#include <utility>

namespace perchly {

struct LayerSurface::Listener {
    static void configure(void *data, zwlr_layer_surface_v1 *role, uint32_t serial, uint32_t width,
                          uint32_t height) {
        zwlr_layer_surface_v1_ack_configure(role, serial);
        auto *surface = static_cast<LayerSurface *>(data);
        surface->m_assignedSize = QSize(int(width), int(height));
        Q_EMIT surface->sizeAssigned();
    }
    static void close(void *data, zwlr_layer_surface_v1 * /*role*/) {
        auto *surface = static_cast<LayerSurface *>(data);
        surface->release();
        Q_EMIT surface->closed();
    }
    static constexpr zwlr_layer_surface_v1_listener table{configure, close};
};

LayerSurface::LayerSurface(WaylandConnection &connection, QWindow &window, const char *scope,
                           Layer layer)
    : m_connection(connection)
    , m_window(window)
    , m_scope(scope)
    , m_layer(layer) {
    // Qt destroys the surface of a window that hides. If its role is still there, newer compositors
    // end the connection.
    connect(&m_window, &QWindow::visibleChanged, this, [this](bool visible) {
        if (!visible) {
            destroyRole();
        }
    });
    connect(qGuiApp, &QGuiApplication::screenRemoved, this, [this](const QScreen *screen) {
        if (screen == m_screen) { // afterwards Qt would destroy the surface before its role
            release();
            Q_EMIT closed();
        }
    });
}

LayerSurface::~LayerSurface() {
    destroyRole();
}

void LayerSurface::place(QScreen &screen, const QRect &frame, Origin origin) {
    // The display of a role is fixed. Sway leaves traces of a surface that only moves.
    const bool onlyMoves = frame.size() == m_frame.size() && frame != m_frame;
    if (m_role != nullptr && (m_screen != &screen || onlyMoves)) {
        release();
    }
    m_screen = &screen;
    m_frame = frame;
    m_origin = origin;
    if (m_role == nullptr) {
        realize();
        return;
    }
    send();
    m_isResizing = m_isResizing || m_window.size() != frame.size();
    tellQt();
    if (!m_isResizing) { // otherwise its next picture commits the place, too
        commit();
    }
}

void LayerSurface::fill(QScreen &screen) {
    place(screen, QRect(), Origin::FreeArea);
}

void LayerSurface::setKeyboard(Keyboard keyboard) {
    m_keyboard = keyboard;
    sendNow();
}

void LayerSurface::setLayer(Layer layer) {
    m_layer = layer;
    sendNow();
}

void LayerSurface::sendNow() {
    if (m_role != nullptr) {
        send();
        if (!m_isResizing) {
            commit();
        }
    }
}

void LayerSurface::setInputRegion(const QRegion &region) {
    if (m_inputRegion == region) {
        return;
    }
    m_inputRegion = region;
    if (m_role != nullptr) {
        sendInputRegion();
        if (!m_isResizing) {
            commit();
        }
    }
}

void LayerSurface::handleFrame() {
    if (std::exchange(m_isResizing, false) && m_role != nullptr) {
        commit();
    }
}

void LayerSurface::release() {
    destroyRole();
    m_window.destroy();
}

void LayerSurface::destroyRole() {
    if (m_role != nullptr) {
        zwlr_layer_surface_v1_destroy(std::exchange(m_role, nullptr));
    }
    m_assignedSize = QSize();
    m_isResizing = false;
}

void LayerSurface::realize() {
    m_window.setScreen(m_screen);
    tellQt();
    m_window.destroy(); // a role needs a surface that never had a picture
    m_window.create();
    m_surface = WaylandConnection::surfaceOf(m_window);
    m_role = zwlr_layer_shell_v1_get_layer_surface(
        m_connection.layerShell(), m_surface, WaylandConnection::outputOf(*m_screen),
        static_cast<uint32_t>(m_layer), m_scope.constData());
    auto *proxy = reinterpret_cast<wl_proxy *>(m_role);
    zwlr_layer_surface_v1_add_listener(m_role, &Listener::table, this);
    constexpr auto corner = ZWLR_LAYER_SURFACE_V1_ANCHOR_TOP | ZWLR_LAYER_SURFACE_V1_ANCHOR_LEFT;
    constexpr auto allEdges =
        corner | ZWLR_LAYER_SURFACE_V1_ANCHOR_BOTTOM | ZWLR_LAYER_SURFACE_V1_ANCHOR_RIGHT;
    zwlr_layer_surface_v1_set_anchor(m_role, m_frame.isEmpty() ? allEdges : corner);
    send();
    if (m_inputRegion) {
        sendInputRegion();
    }
    commit();
    // Qt may attach a picture only after the first configure.
    while (m_role != nullptr && !m_assignedSize.isValid() && m_connection.roundtrip()) {
    }
    if (m_role != nullptr) {
        m_connection.moveTo(WaylandConnection::Queue::Qt, proxy);
    }
}

/// For the positions that assistive programs and events report.
void LayerSurface::tellQt() {
    const QRect frame = m_frame.isEmpty() ? QRect(0, 0, 1, 1) : m_frame;
    m_window.setGeometry(frame.translated(m_screen->geometry().topLeft()));
}

void LayerSurface::send() {
    if (m_connection.layerShellVersion() >= ZWLR_LAYER_SURFACE_V1_SET_LAYER_SINCE_VERSION) {
        zwlr_layer_surface_v1_set_layer(m_role, static_cast<uint32_t>(m_layer));
    }
    zwlr_layer_surface_v1_set_exclusive_zone(m_role, static_cast<int32_t>(m_origin));
    zwlr_layer_surface_v1_set_size(m_role, uint32_t(m_frame.width()), uint32_t(m_frame.height()));
    zwlr_layer_surface_v1_set_margin(m_role, m_frame.top(), 0, 0, m_frame.left());
    zwlr_layer_surface_v1_set_keyboard_interactivity(m_role, static_cast<uint32_t>(m_keyboard));
}

void LayerSurface::sendInputRegion() {
    wl_region *region = wl_compositor_create_region(m_connection.compositor());
    for (const QRect &rect : *m_inputRegion) {
        wl_region_add(region, rect.x(), rect.y(), rect.width(), rect.height());
    }
    wl_surface_set_input_region(m_surface, region);
    wl_region_destroy(region);
}

void LayerSurface::commit() const {
    wl_surface_commit(m_surface);
    m_connection.flush();
}

} // namespace perchly
