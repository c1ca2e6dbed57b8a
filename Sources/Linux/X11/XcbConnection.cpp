#include "XcbConnection.h"

#include "XServerReach.h"

#include <poll.h>
#include <QDeadlineTimer>
#include <QPointer>
#include <QSocketNotifier>
#include <xcb/shape.h>
#include <xcb/xcbext.h>
#include <xcb/xfixes.h>
#include <xcb/xinput.h>

namespace perchly {

namespace {

constexpr std::chrono::milliseconds connectPatience{2000};
constexpr std::chrono::milliseconds replyPatience{250};
// What a server left lying comes first when it goes on; and one that is always slow is not asked
// for everything again without a pause.
constexpr std::chrono::milliseconds catchUpTime{500};
constexpr quint32 longestProperty = 16384;

} // namespace

XcbConnection::XcbConnection(const QByteArray &displayName, QObject *parent)
    : QObject(parent)
    , m_displayName(displayName) {
    m_retry.setSingleShot(true);
    connect(&m_retry, &QTimer::timeout, this, &XcbConnection::openAgain);
    m_catchUp.setSingleShot(true);
    m_catchUp.setInterval(catchUpTime);
    connect(&m_catchUp, &QTimer::timeout, this, [this] {
        if (isAlive() && !m_probe) {
            Q_EMIT restored();
        }
    });
    if (!open(connectPatience)) {
        qWarning("The X server cannot be reached, or does not answer.");
        retryLater();
    }
}

XcbConnection::~XcbConnection() {
    close();
}

bool XcbConnection::open(std::chrono::milliseconds patience) {
    m_connection = connectToXServer(m_displayName, &m_screenNumber, patience).release();
    if (!m_connection) {
        return false;
    }
    auto screen = xcb_setup_roots_iterator(xcb_get_setup(m_connection));
    for (int i = 0; i < m_screenNumber && screen.rem > 1; ++i) {
        xcb_screen_next(&screen);
    }
    m_root = screen.data->root;

    // The library asks for an extension at its first use and then waits without end. Asked for now,
    // the answers are there before the answer to a later request is.
    xcb_prefetch_extension_data(m_connection, &xcb_input_id);
    xcb_prefetch_extension_data(m_connection, &xcb_xfixes_id);
    xcb_prefetch_extension_data(m_connection, &xcb_shape_id);
    if (!reply<xcb_get_input_focus_reply_t>(xcb_get_input_focus(m_connection))) {
        close();
        return false;
    }
    m_notifier = std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(m_connection),
                                                   QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &XcbConnection::drain);
    return true;
}

void XcbConnection::close() {
    m_notifier.reset();
    if (m_connection) {
        xcb_disconnect(std::exchange(m_connection, nullptr));
    }
    m_waiting.clear();
    m_atoms.clear();
    m_probe.reset();
    m_catchUp.stop();
}

void XcbConnection::openAgain() {
    close();
    if (open(replyPatience)) {
        m_retries = 0;
        Q_EMIT restored();
    } else {
        ++m_retries;
        retryLater();
    }
}

void XcbConnection::retryLater() {
    if (const auto delay = delayOfAttempt(m_retries)) {
        m_retry.start(*delay);
    }
}

bool XcbConnection::isAlive() const {
    return m_connection && xcb_connection_has_error(m_connection) == 0;
}

std::optional<bool> XcbConnection::succeeded(const QList<xcb_void_cookie_t> &cookies) {
    if (!isAlive()) {
        return std::nullopt;
    }
    // Once a later request is answered, checking the earlier ones does not wait.
    if (!reply<xcb_get_input_focus_reply_t>(xcb_get_input_focus(m_connection))) {
        for (const xcb_void_cookie_t cookie : cookies) {
            xcb_discard_reply(m_connection, cookie.sequence);
        }
        return std::nullopt;
    }
    bool result = true;
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
    if (!isAlive()) {
        return XCB_ATOM_NONE;
    }
    const auto answer = reply<xcb_intern_atom_reply_t>(
        xcb_intern_atom(m_connection, 0, static_cast<quint16>(name.size()), name.constData()));
    if (!answer) {
        return XCB_ATOM_NONE;
    }
    m_atoms.insert(name, answer->atom);
    return answer->atom;
}

QList<quint32> XcbConnection::property(xcb_window_t window, xcb_atom_t name) {
    if (!isAlive()) {
        return {};
    }
    return property(requestProperty(window, name));
}

xcb_get_property_cookie_t XcbConnection::requestProperty(xcb_window_t window, xcb_atom_t name) {
    return xcb_get_property(m_connection, 0, window, name, XCB_GET_PROPERTY_TYPE_ANY, 0,
                            longestProperty);
}

QList<quint32> XcbConnection::property(xcb_get_property_cookie_t cookie) {
    const auto answer = reply<xcb_get_property_reply_t>(cookie);
    if (!answer || answer->format != 32) {
        return {};
    }
    const auto *values = static_cast<const quint32 *>(xcb_get_property_value(answer.get()));
    return {values, values + answer->value_len};
}

void XcbConnection::flush() {
    if (isAlive()) {
        xcb_flush(m_connection);
    }
}

void XcbConnection::setListening(bool on) {
    if (m_notifier) {
        m_notifier->setEnabled(on && isAlive());
    }
}

void XcbConnection::drain() {
    m_isDrainScheduled = false;
    if (!m_connection) {
        return;
    }
    const QPointer<XcbConnection> self(this);
    while (self) {
        XcbPointer<xcb_generic_event_t> event;
        if (!m_waiting.empty()) {
            event = std::move(m_waiting.front());
            m_waiting.pop_front();
        } else {
            event.reset(xcb_poll_for_event(m_connection));
        }
        if (!event) {
            break;
        }
        if (event->response_type != 0) {
            Q_EMIT eventArrived(event.get());
        }
    }
    if (!self) {
        return;
    }
    // The events may have been read together with the answer that ends a silence.
    if (isAlive() && m_probe && !isMute()) {
        keepQueuedEvents();
    }
    // A closed socket is readable for ever.
    if (!isAlive()) {
        setListening(false);
        if (!m_retry.isActive()) {
            retryLater();
        }
    }
    Q_EMIT drained();
}

void *XcbConnection::waitForReply(unsigned int sequence) {
    if (!isAlive()) {
        return nullptr;
    }
    xcb_flush(m_connection);
    const QDeadlineTimer deadline(isMute() ? std::chrono::milliseconds(0) : replyPatience);
    void *answer = nullptr;
    xcb_generic_error_t *error = nullptr;
    while (!xcb_poll_for_reply(m_connection, sequence, &answer, &error)) {
        const qint64 left = deadline.remainingTime();
        if (left <= 0) {
            xcb_discard_reply(m_connection, sequence);
            if (!m_probe) {
                m_probe = xcb_get_input_focus(m_connection).sequence;
                xcb_flush(m_connection);
            }
            break;
        }
        pollfd readable{xcb_get_file_descriptor(m_connection), POLLIN, 0};
        ::poll(&readable, 1, static_cast<int>(left));
    }
    std::free(error);
    keepQueuedEvents();
    return answer;
}

// The answer to the probe makes the socket readable, so that nothing has to look for it in between.
bool XcbConnection::isMute() {
    if (!m_probe) {
        return false;
    }
    void *answer = nullptr;
    xcb_generic_error_t *error = nullptr;
    if (!xcb_poll_for_reply(m_connection, *m_probe, &answer, &error)) {
        return true;
    }
    std::free(answer);
    std::free(error);
    m_probe.reset();
    m_catchUp.start();
    return false;
}

// Events read while waiting for an answer no longer make the socket readable.
void XcbConnection::keepQueuedEvents() {
    while (auto *event = xcb_poll_for_queued_event(m_connection)) {
        m_waiting.emplace_back(event);
    }
    if (m_waiting.empty() || m_isDrainScheduled) {
        return;
    }
    m_isDrainScheduled = true;
    QMetaObject::invokeMethod(this, &XcbConnection::drain, Qt::QueuedConnection);
}

} // namespace perchly
