#include "StartupSequence.h"

#include "ConnectWithTimeout.h"
#include "XcbPointer.h"

#include <mutex>
#include <optional>
#include <poll.h>

#define SN_API_NOT_YET_FROZEN
#include <libsn/sn.h>

namespace perchly::startupsequence {

namespace {

constexpr std::chrono::milliseconds timeout{500};

// libsn is not thread-safe.
std::mutex &mutex() {
    static std::mutex theMutex;
    return theMutex;
}

/// The server's time, taken from a property change, after all earlier requests were handled.
std::optional<xcb_timestamp_t> serverTime(xcb_connection_t *connection) {
    const xcb_window_t window = xcb_generate_id(connection);
    const quint32 mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window(connection, XCB_COPY_FROM_PARENT, window,
                      xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root, -1, -1, 1, 1,
                      0, XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK,
                      &mask);
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_NAME,
                        XCB_ATOM_STRING, 8, 0, nullptr);
    xcb_flush(connection);
    pollfd socket{xcb_get_file_descriptor(connection), POLLIN, 0};
    poll(&socket, 1, int(timeout.count()));
    const XcbPointer<xcb_generic_event_t> event(xcb_poll_for_event(connection));
    if (!event || (event->response_type & 0x7f) != XCB_PROPERTY_NOTIFY) {
        return std::nullopt;
    }
    return reinterpret_cast<const xcb_property_notify_event_t *>(event.get())->time;
}

} // namespace

QByteArray begin(const QByteArray &name) {
    const std::lock_guard lock(mutex());
    const XConnectionPointer connection = connectWithTimeout(timeout);
    const auto time = connection ? serverTime(connection.get()) : std::nullopt;
    if (!time) {
        return {};
    }
    SnDisplay *display = sn_xcb_display_new(connection.get(), nullptr, nullptr);
    SnLauncherContext *context = sn_launcher_context_new(display, 0);
    sn_launcher_context_set_name(context, name.constData());
    sn_launcher_context_initiate(context, "perchly", name.constData(), *time);
    const QByteArray identifier = sn_launcher_context_get_startup_id(context);
    sn_launcher_context_unref(context);
    sn_display_unref(display);
    static_cast<void>(serverTime(connection.get()));
    return identifier;
}

void withdraw(const QByteArray &identifier) {
    const std::lock_guard lock(mutex());
    const XConnectionPointer connection = connectWithTimeout(timeout);
    if (connection) {
        SnDisplay *display = sn_xcb_display_new(connection.get(), nullptr, nullptr);
        SnLauncheeContext *context = sn_launchee_context_new(display, 0, identifier.constData());
        sn_launchee_context_complete(context);
        sn_launchee_context_unref(context);
        sn_display_unref(display);
        static_cast<void>(serverTime(connection.get()));
    }
}

} // namespace perchly::startupsequence
