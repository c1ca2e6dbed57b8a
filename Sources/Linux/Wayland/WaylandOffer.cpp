#include "WaylandOffer.h"

#include <QDeadlineTimer>
#include <QtGlobal>

#include <cstring>
#include <memory>
#include <poll.h>
#include <wayland-client.h>

namespace perchly {

namespace {

struct Answer {
    const char *interface = nullptr;
    bool isOffered = false;
    bool isComplete = false;
};

void noteGlobal(void *answer, wl_registry * /*registry*/, uint32_t /*name*/, const char *interface,
                uint32_t /*version*/) {
    auto *wanted = static_cast<Answer *>(answer);
    wanted->isOffered = wanted->isOffered || qstrcmp(interface, wanted->interface) == 0;
}

void ignoreRemoval(void * /*answer*/, wl_registry * /*registry*/, uint32_t /*name*/) {}

void noteEnd(void *answer, wl_callback * /*callback*/, uint32_t /*data*/) {
    static_cast<Answer *>(answer)->isComplete = true;
}

constexpr wl_registry_listener registryListener{noteGlobal, ignoreRemoval};
constexpr wl_callback_listener endListener{noteEnd};

/// Dispatches what arrives within the time. False if nothing does.
bool dispatchWithin(wl_display *display, const QDeadlineTimer &deadline) {
    while (wl_display_prepare_read(display) != 0) {
        wl_display_dispatch_pending(display);
    }
    wl_display_flush(display);
    pollfd watched{wl_display_get_fd(display), POLLIN, 0};
    if (poll(&watched, 1, static_cast<int>(deadline.remainingTime())) <= 0) {
        wl_display_cancel_read(display);
        return false;
    }
    return wl_display_read_events(display) == 0 && wl_display_dispatch_pending(display) >= 0;
}

} // namespace

bool compositorOffers(const char *interface, std::chrono::milliseconds timeout) {
    if (!qEnvironmentVariableIsSet("WAYLAND_DISPLAY")) {
        return false; // "wayland-0", the default, may be another session
    }
    const std::unique_ptr<wl_display, decltype(&wl_display_disconnect)> display(
        wl_display_connect(nullptr), wl_display_disconnect);
    if (!display) {
        return false;
    }
    Answer answer{interface};
    wl_registry *registry = wl_display_get_registry(display.get());
    wl_callback *end = wl_display_sync(display.get());
    wl_registry_add_listener(registry, &registryListener, &answer);
    wl_callback_add_listener(end, &endListener, &answer);
    const QDeadlineTimer deadline(timeout);
    while (!answer.isComplete && dispatchWithin(display.get(), deadline)) {
    }
    wl_callback_destroy(end);
    wl_registry_destroy(registry);
    return answer.isOffered;
}

} // namespace perchly
