#include "X11PointerMonitor.h"

#include "ScreenSpace.h"

#include <xcb/xinput.h>

namespace perchly {

namespace {

constexpr std::chrono::milliseconds restTime{12};
constexpr std::chrono::milliseconds pollInterval{250};

} // namespace

X11PointerMonitor::X11PointerMonitor(QObject *parent)
    : PointerMonitor(parent) {
    m_rest.setSingleShot(true);
    m_rest.setTimerType(Qt::PreciseTimer);
    m_rest.setInterval(restTime);
    m_poll.setInterval(pollInterval);
    connect(&m_rest, &QTimer::timeout, this, &X11PointerMonitor::lookAgain);
    connect(&m_poll, &QTimer::timeout, this, &X11PointerMonitor::poll);
    connect(&m_connection, &XcbConnection::eventArrived, this, &X11PointerMonitor::handleEvent);
    connect(&m_connection, &XcbConnection::drained, this, &X11PointerMonitor::announce);
    connect(&m_connection, &XcbConnection::restored, this, &X11PointerMonitor::start);
    queryPosition();
}

void X11PointerMonitor::start() {
    if (!m_connection.isAlive()) {
        return;
    }
    const auto *extension = xcb_get_extension_data(m_connection.get(), &xcb_input_id);
    // Before version 2.1 raw motion stops while another program holds the pointer.
    const auto version = extension && extension->present
                             ? m_connection.reply<xcb_input_xi_query_version_reply_t>(
                                   xcb_input_xi_query_version(m_connection.get(), 2, 2))
                             : nullptr;
    if (!version && m_connection.isBehind()) {
        return; // this is called once more
    }
    m_seesMotion = version != nullptr;
    updatePolling();
    if (!version) {
        qWarning("The X server has no XInput 2: the pointer is looked at from time to time.");
        return;
    }
    m_inputOpcode = extension->major_opcode;
    struct {
        xcb_input_event_mask_t head{XCB_INPUT_DEVICE_ALL_MASTER, 1};
        quint32 mask = XCB_INPUT_XI_EVENT_MASK_RAW_MOTION;
    } selection;
    xcb_input_xi_select_events(m_connection.get(), m_connection.root(), 1, &selection.head);
    m_connection.flush();
}

ScreenPoint X11PointerMonitor::position() const {
    return ScreenSpace::current().fromPixels(queryPosition());
}

void X11PointerMonitor::setPolling(bool on) {
    m_isPollingWanted = on;
    updatePolling();
}

void X11PointerMonitor::updatePolling() {
    const bool isNeeded = m_isPollingWanted || !m_seesMotion;
    if (!isNeeded) {
        m_poll.stop();
    } else if (!m_poll.isActive()) {
        m_poll.start();
    }
}

void X11PointerMonitor::handleEvent(const xcb_generic_event_t *event) {
    const auto *generic = reinterpret_cast<const xcb_ge_generic_event_t *>(event);
    if ((event->response_type & 0x7f) != XCB_GE_GENERIC || generic->extension != m_inputOpcode ||
        generic->event_type != XCB_INPUT_RAW_MOTION) {
        return;
    }
    m_hasMoved = true;
}

void X11PointerMonitor::announce() {
    if (!m_hasMoved || m_rest.isActive()) {
        return;
    }
    m_hasMoved = false;
    m_connection.setListening(false);
    m_rest.start();
    Q_EMIT moved();
}

void X11PointerMonitor::lookAgain() {
    m_connection.drain();
    if (!m_rest.isActive()) {
        m_connection.setListening(true);
    }
}

void X11PointerMonitor::poll() {
    const QPoint before = m_lastPixels;
    if (queryPosition() != before) {
        Q_EMIT moved();
    }
}

QPoint X11PointerMonitor::queryPosition() const {
    if (!m_connection.isAlive()) {
        return m_lastPixels;
    }
    const auto answer = m_connection.reply<xcb_query_pointer_reply_t>(
        xcb_query_pointer(m_connection.get(), m_connection.root()));
    if (answer) {
        m_lastPixels = QPoint(answer->root_x, answer->root_y);
    }
    return m_lastPixels;
}

} // namespace perchly
