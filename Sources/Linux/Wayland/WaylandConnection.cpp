#include "WaylandConnection.h"

#include "wlr-layer-shell-unstable-v1-client.h"

#include <QGuiApplication>
#include <qpa/qplatformnativeinterface.h>
#include <qpa/qplatformscreen.h>
#include <QScreen>
#include <QWindow>

#include <algorithm>

namespace perchly {

namespace {

constexpr uint32_t knownLayerShell = 4;

struct Wanted {
    const wl_interface &interface;
    uint32_t maxVersion = 1;
    void *object = nullptr;
};

void bindWanted(void *data, wl_registry *registry, uint32_t name, const char *interface,
                uint32_t version) {
    auto *wanted = static_cast<Wanted *>(data);
    if (wanted->object == nullptr && qstrcmp(interface, wanted->interface.name) == 0) {
        wanted->object = wl_registry_bind(registry, name, &wanted->interface,
                                          std::min(version, wanted->maxVersion));
    }
}

void ignoreGlobalRemoval(void * /*data*/, wl_registry * /*registry*/, uint32_t /*name*/) {}

constexpr wl_registry_listener globalsListener{bindWanted, ignoreGlobalRemoval};

} // namespace

WaylandConnection::WaylandConnection()
    : m_display(static_cast<wl_display *>(nativeResource("wl_display")))
    , m_queue(wl_display_create_queue(m_display)) {
    m_layerShell =
        static_cast<zwlr_layer_shell_v1 *>(bind(zwlr_layer_shell_v1_interface, knownLayerShell));
    m_layerShellVersion = m_layerShell == nullptr
                              ? 0
                              : wl_proxy_get_version(reinterpret_cast<wl_proxy *>(m_layerShell));
    m_shm = static_cast<wl_shm *>(bind(wl_shm_interface, 1));
}

WaylandConnection::~WaylandConnection() {
    if (m_layerShell != nullptr) {
        zwlr_layer_shell_v1_destroy(m_layerShell);
    }
    wl_shm_destroy(m_shm);
    wl_event_queue_destroy(m_queue);
}

void *WaylandConnection::bind(const wl_interface &interface, unsigned maxVersion) const {
    auto *wrapper = static_cast<wl_display *>(wl_proxy_create_wrapper(m_display));
    wl_proxy_set_queue(reinterpret_cast<wl_proxy *>(wrapper), m_queue);
    wl_registry *registry = wl_display_get_registry(wrapper);
    wl_proxy_wrapper_destroy(wrapper);
    Wanted wanted{interface, maxVersion};
    wl_registry_add_listener(registry, &globalsListener, &wanted);
    roundtrip();
    wl_registry_destroy(registry);
    return wanted.object;
}

bool WaylandConnection::dispatch() const {
    return wl_display_dispatch_queue(m_display, m_queue) >= 0;
}

void WaylandConnection::chooseBuffers() {
    static_cast<void>(nativeResource("egldisplay")); // belongs to one of the ways
}

void *WaylandConnection::nativeResource(const QByteArray &name) {
    return QGuiApplication::platformNativeInterface()->nativeResourceForIntegration(name);
}

bool WaylandConnection::hasKeyboard() {
    return nativeResource("wl_keyboard") != nullptr;
}

wl_compositor *WaylandConnection::compositor() const {
    return static_cast<wl_compositor *>(nativeResource("compositor"));
}

wl_surface *WaylandConnection::surfaceOf(QWindow &window) {
    return static_cast<wl_surface *>(
        QGuiApplication::platformNativeInterface()->nativeResourceForWindow("surface", &window));
}

wl_output *WaylandConnection::outputOf(QScreen &screen) {
    if (screen.handle()->isPlaceholder()) { // which Qt takes for one of the compositor's
        return nullptr;
    }
    return static_cast<wl_output *>(
        QGuiApplication::platformNativeInterface()->nativeResourceForScreen("output", &screen));
}

void WaylandConnection::flush() const {
    wl_display_flush(m_display);
}

void WaylandConnection::moveTo(Queue queue, wl_proxy *object) const {
    wl_proxy_set_queue(object, queue == Queue::Own ? m_queue : nullptr);
}

bool WaylandConnection::roundtrip() const {
    return wl_display_roundtrip_queue(m_display, m_queue) >= 0;
}

} // namespace perchly
