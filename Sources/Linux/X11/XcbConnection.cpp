#include "XcbConnection.h"

#include <poll.h>
#include <QDeadlineTimer>
#include <QSocketNotifier>
#include <xcb/shape.h>
#include <xcb/xcbext.h>
#include <xcb/xfixes.h>
#include <xcb/xinput.h>

namespace perchly {

namespace {

constexpr std::chrono::milliseconds replyTimeout{500};
constexpr quint32 maxPropertyWords = 16384;

} // namespace

XcbConnection::XcbConnection(QObject *parent)
    : QObject(parent)
    , m_connection(xcb_connect(nullptr, nullptr)) {
    if (!isAlive()) {
        qWarning("The X server refuses another connection.");
        return;
    }
    m_root = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root;
    // On first use of an extension libxcb queries it and waits without a timeout.
    for (xcb_extension_t *extension : {&xcb_input_id, &xcb_xfixes_id, &xcb_shape_id}) {
        xcb_prefetch_extension_data(m_connection, extension);
    }
    static_cast<void>(sync());
    m_notifier = std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(m_connection),
                                                   QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, [this] {
        m_isStalled = false;
        drain();
    });
}

XcbConnection::~XcbConnection() {
    m_notifier.reset();
    xcb_disconnect(m_connection);
}

bool XcbConnection::sync() {
    return reply<xcb_get_input_focus_reply_t>(xcb_get_input_focus(m_connection)) != nullptr;
}

bool XcbConnection::succeeded(const QList<xcb_void_cookie_t> &cookies) {
    if (!sync()) {
        for (const xcb_void_cookie_t cookie : cookies) {
            xcb_discard_reply(m_connection, cookie.sequence);
        }
        return false;
    }
    bool result = true; // after sync(), xcb_request_check does not wait
    for (const xcb_void_cookie_t cookie : cookies) {
        const XcbPointer<xcb_generic_error_t> error(xcb_request_check(m_connection, cookie));
        result = result && !error;
    }
    return result;
}

xcb_atom_t XcbConnection::atom(const QByteArray &name) {
    if (const auto known = m_atoms.constFind(name); known != m_atoms.constEnd()) {
        return *known;
    }
    const auto answer = reply<xcb_intern_atom_reply_t>(
        xcb_intern_atom(m_connection, 0, static_cast<quint16>(name.size()), name.constData()));
    return answer ? *m_atoms.insert(name, answer->atom) : xcb_atom_t{XCB_ATOM_NONE};
}

QList<quint32> XcbConnection::property(xcb_window_t window, xcb_atom_t name) {
    return property(requestProperty(window, name));
}

xcb_get_property_cookie_t XcbConnection::requestProperty(xcb_window_t window, xcb_atom_t name) {
    return xcb_get_property(m_connection, 0, window, name, XCB_GET_PROPERTY_TYPE_ANY, 0,
                            maxPropertyWords);
}

QList<quint32> XcbConnection::property(xcb_get_property_cookie_t cookie) {
    const auto answer = reply<xcb_get_property_reply_t>(cookie);
    if (!answer || answer->format != 32) {
        return {};
    }
    const auto *values = static_cast<const quint32 *>(xcb_get_property_value(answer.get()));
    return {values, values + answer->value_len};
}

void XcbConnection::selectEvents(xcb_window_t window, quint32 mask) {
    xcb_change_window_attributes(m_connection, window, XCB_CW_EVENT_MASK, &mask);
    xcb_flush(m_connection);
}

void XcbConnection::setListening(bool on) {
    if (m_notifier) {
        m_notifier->setEnabled(on && isAlive());
    }
}

void XcbConnection::drain() {
    while (const XcbPointer<xcb_generic_event_t> event{xcb_poll_for_event(m_connection)}) {
        if (event->response_type != 0) { // not an error
            Q_EMIT eventArrived(event.get());
        }
    }
    if (!isAlive()) {
        setListening(false); // a closed socket stays readable
    }
    Q_EMIT drained();
}

void *XcbConnection::waitForReply(unsigned int sequence) {
    xcb_flush(m_connection);
    const QDeadlineTimer deadline(m_isStalled ? std::chrono::milliseconds(0) : replyTimeout);
    void *answer = nullptr;
    xcb_generic_error_t *error = nullptr;
    while (xcb_poll_for_reply(m_connection, sequence, &answer, &error) == 0) {
        if (deadline.hasExpired()) {
            xcb_discard_reply(m_connection, sequence);
            m_isStalled = true;
            return nullptr;
        }
        pollfd socket{xcb_get_file_descriptor(m_connection), POLLIN, 0};
        ::poll(&socket, 1, static_cast<int>(deadline.remainingTime()));
    }
    std::free(error);
    m_isStalled = false;
    // libxcb may have read events along with the reply; the socket does not signal those.
    QMetaObject::invokeMethod(this, &XcbConnection::drain, Qt::QueuedConnection);
    return answer;
}

} // namespace perchly
