#include "StartupSequence.h"

#include "XcbPointer.h"
#include "XServerReach.h"

#include <QString>
#include <QSysInfo>

#include <poll.h>
#include <unistd.h>
#include <xcb/xcb.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <optional>

namespace perchly::startupsequence {

using namespace std::chrono_literals;

namespace {

constexpr auto patience = 500ms;
constexpr qsizetype chunkSize = 20;

/// A window that nobody sees, for the messages to come from.
class Sender {
public:
    Sender()
        : m_connection(connectToXServer({}, nullptr, patience)) {
        if (m_connection) {
            m_root = xcb_setup_roots_iterator(xcb_get_setup(m_connection.get())).data->root;
            m_window = xcb_generate_id(m_connection.get());
            const std::array<quint32, 2> values{1, XCB_EVENT_MASK_PROPERTY_CHANGE};
            xcb_create_window(m_connection.get(), XCB_COPY_FROM_PARENT, m_window, m_root, -1, -1, 1,
                              1, 0, XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT,
                              XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK, values.data());
        }
    }

    /// The server's time, as a change of a property tells it.
    [[nodiscard]] std::optional<quint32> time() const {
        if (!m_connection) {
            return std::nullopt;
        }
        xcb_change_property(m_connection.get(), XCB_PROP_MODE_REPLACE, m_window, XCB_ATOM_WM_NAME,
                            XCB_ATOM_STRING, 8, 0, nullptr);
        xcb_flush(m_connection.get());
        pollfd waiting{xcb_get_file_descriptor(m_connection.get()), POLLIN, 0};
        while (poll(&waiting, 1, int(patience.count())) > 0) {
            while (const XcbPointer<xcb_generic_event_t> event{
                xcb_poll_for_event(m_connection.get())}) {
                if ((event->response_type & 0x7f) == XCB_PROPERTY_NOTIFY) {
                    return reinterpret_cast<xcb_property_notify_event_t *>(event.get())->time;
                }
            }
            if (xcb_connection_has_error(m_connection.get()) != 0) {
                break;
            }
        }
        return std::nullopt;
    }

    void send(const QByteArray &message) const {
        if (!m_connection) {
            return;
        }
        const QByteArray text = message + '\0';
        xcb_atom_t type = atom("_NET_STARTUP_INFO_BEGIN");
        for (qsizetype at = 0; at < text.size(); at += chunkSize) {
            xcb_client_message_event_t event = {};
            event.response_type = XCB_CLIENT_MESSAGE;
            event.format = 8;
            event.window = m_window;
            event.type = type;
            std::ranges::copy(text.mid(at, chunkSize), event.data.data8);
            xcb_send_event(m_connection.get(), 0, m_root, XCB_EVENT_MASK_PROPERTY_CHANGE,
                           reinterpret_cast<const char *>(&event));
            if (at == 0) {
                type = atom("_NET_STARTUP_INFO");
            }
        }
        // Once it answers, everything has arrived.
        (void)time();
    }

private:
    [[nodiscard]] xcb_atom_t atom(const QByteArray &name) const {
        const XcbPointer<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
            m_connection.get(),
            xcb_intern_atom(m_connection.get(), 0, quint16(name.size()), name.constData()),
            nullptr));
        return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
    }

    XConnectionPointer m_connection;
    xcb_window_t m_root = XCB_WINDOW_NONE;
    xcb_window_t m_window = XCB_WINDOW_NONE;
};

QByteArray quoted(QByteArray text) {
    text.replace('\\', "\\\\").replace('"', "\\\"");
    return '"' + text + '"';
}

} // namespace

QByteArray begin(const QByteArray &name) {
    static std::atomic<int> count = 0;
    const Sender sender;
    const auto time = sender.time();
    if (!time) {
        return {};
    }
    const QByteArray identifier =
        "perchly-" + QByteArray::number(getpid()) + '-' + QByteArray::number(++count) + '-' +
        QSysInfo::machineHostName().toUtf8() + "_TIME" + QByteArray::number(*time);
    sender.send("new: ID=" + quoted(identifier) + " NAME=" + quoted(name) + " SCREEN=0");
    return identifier;
}

void withdraw(const QByteArray &identifier) {
    Sender().send("remove: ID=" + quoted(identifier));
}

} // namespace perchly::startupsequence
