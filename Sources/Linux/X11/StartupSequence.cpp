#include "StartupSequence.h"

#include "XcbPointer.h"
#include "XServerReach.h"

#include <mutex>
#include <optional>
#include <poll.h>

#define SN_API_NOT_YET_FROZEN
#include <libsn/sn.h>

namespace perchly::startupsequence {

namespace {

constexpr std::chrono::milliseconds timeout{500};

/// A connection of its own for one message; libsn is used by one thread at a time.
class Sender {
public:
    Sender()
        : m_lock(mutex())
        , m_connection(connectToXServer({}, nullptr, timeout))
        , m_display(m_connection ? sn_xcb_display_new(m_connection.get(), nullptr, nullptr)
                                 : nullptr) {}
    ~Sender() {
        if (m_display != nullptr) {
            static_cast<void>(serverTime()); // so that the message has arrived
            sn_display_unref(m_display);
        }
    }
    Sender(const Sender &) = delete;
    Sender &operator=(const Sender &) = delete;

    [[nodiscard]] SnDisplay *display() const { return m_display; }

    /// The server's time, from the change of a property.
    [[nodiscard]] std::optional<xcb_timestamp_t> serverTime() const {
        xcb_connection_t *connection = m_connection.get();
        const xcb_window_t window = xcb_generate_id(connection);
        const quint32 mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
        xcb_create_window(connection, XCB_COPY_FROM_PARENT, window,
                          xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root, -1, -1, 1,
                          1, 0, XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT,
                          XCB_CW_EVENT_MASK, &mask);
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

private:
    static std::mutex &mutex() {
        static std::mutex theMutex;
        return theMutex;
    }

    std::unique_lock<std::mutex> m_lock;
    XConnectionPointer m_connection;
    SnDisplay *m_display;
};

} // namespace

QByteArray begin(const QByteArray &name) {
    const Sender sender;
    const auto time = sender.display() != nullptr ? sender.serverTime() : std::nullopt;
    if (!time) {
        return {};
    }
    SnLauncherContext *context = sn_launcher_context_new(sender.display(), 0);
    sn_launcher_context_set_name(context, name.constData());
    sn_launcher_context_initiate(context, "perchly", name.constData(), *time);
    const QByteArray identifier = sn_launcher_context_get_startup_id(context);
    sn_launcher_context_unref(context);
    return identifier;
}

void withdraw(const QByteArray &identifier) {
    const Sender sender;
    if (sender.display() != nullptr) {
        SnLauncheeContext *context =
            sn_launchee_context_new(sender.display(), 0, identifier.constData());
        sn_launchee_context_complete(context);
        sn_launchee_context_unref(context);
    }
}

} // namespace perchly::startupsequence
