#include "LayerSurface.h"

#include "WaylandConnection.h"
#include "wlr-layer-shell-unstable-v1-client.h"

namespace perchly {

struct LayerSurface::Listener {
    static void configure(void *data, zwlr_layer_surface_v1 *role, uint32_t serial,
                          uint32_t /*width*/, uint32_t /*height*/) {
        zwlr_layer_surface_v1_ack_configure(role, serial);
        static_cast<LayerSurface *>(data)->m_isConfigured = true;
    }
    static void close(void *data, zwlr_layer_surface_v1 * /*role*/) {
        Q_EMIT static_cast<LayerSurface *>(data)->closed();
    }
    static constexpr zwlr_layer_surface_v1_listener table{configure, close};
};

LayerSurface::LayerSurface(WaylandConnection &connection, QWindow &window, const char *scope,
                           Layer layer)
    : m_connection(connection)
    , m_window(window)
    , m_scope(scope)
    , m_layer(layer) {}

LayerSurface::~LayerSurface() {
    if (m_role != nullptr) {
        zwlr_layer_surface_v1_destroy(m_role);
    }
}

void LayerSurface::place(QScreen &screen, const QRect &frame, Origin origin) {
    if (m_role != nullptr && m_screen != &screen) {
        release(); // the display of a role is fixed
    }
    m_screen = &screen;
    m_frame = frame;
    m_origin = origin;
    if (m_role == nullptr) {
        realize();
        return;
    }
    send();
    const bool isResized = m_window.size() != frame.size();
    tellQt();
    if (!isResized) { // otherwise its next picture commits the place, too
        commit();
    }
}

void LayerSurface::setKeyboard(Keyboard keyboard) {
    m_keyboard = keyboard;
    if (m_role != nullptr) {
        send();
        commit();
    }
}

void LayerSurface::release() {
    if (m_role != nullptr) {
        zwlr_layer_surface_v1_destroy(m_role);
        m_role = nullptr;
    }
    m_isConfigured = false;
    m_window.destroy();
}

void LayerSurface::realize() {
    m_window.setScreen(m_screen);
    tellQt();
    m_window.create();
    m_surface = WaylandConnection::surfaceOf(m_window);
    m_role = zwlr_layer_shell_v1_get_layer_surface(
        m_connection.layerShell(), m_surface, WaylandConnection::outputOf(*m_screen),
        static_cast<uint32_t>(m_layer), m_scope.constData());
    auto *proxy = reinterpret_cast<wl_proxy *>(m_role);
    zwlr_layer_surface_v1_add_listener(m_role, &Listener::table, this);
    zwlr_layer_surface_v1_set_anchor(m_role, ZWLR_LAYER_SURFACE_V1_ANCHOR_TOP |
                                                 ZWLR_LAYER_SURFACE_V1_ANCHOR_LEFT);
    send();
    commit();
    // Qt may attach a picture only after the first configure.
    while (!m_isConfigured && m_connection.roundtrip()) {
    }
    m_connection.moveTo(WaylandConnection::Queue::Qt, proxy);
}

/// For the positions that assistive programs and events report.
void LayerSurface::tellQt() {
    m_window.setGeometry(m_frame.translated(m_screen->geometry().topLeft()));
}

void LayerSurface::send() {
    zwlr_layer_surface_v1_set_exclusive_zone(m_role, static_cast<int32_t>(m_origin));
    zwlr_layer_surface_v1_set_size(m_role, uint32_t(m_frame.width()), uint32_t(m_frame.height()));
    zwlr_layer_surface_v1_set_margin(m_role, m_frame.top(), 0, 0, m_frame.left());
    zwlr_layer_surface_v1_set_keyboard_interactivity(m_role, static_cast<uint32_t>(m_keyboard));
}

void LayerSurface::commit() const {
    wl_surface_commit(m_surface);
    m_connection.flush();
}

} // namespace perchly
