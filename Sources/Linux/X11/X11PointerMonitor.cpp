#include "X11PointerMonitor.h"

#include "ScreenSpace.h"

#include <xcb/xinput.h>

#include <utility>

namespace perchly {

namespace {

constexpr std::chrono::milliseconds restTime{12};
constexpr std::chrono::milliseconds pollInterval{250};

} // namespace

X11PointerMonitor::X11PointerMonitor() {
    m_rest.setSingleShot(true);
    m_rest.setTimerType(Qt::PreciseTimer);
    m_rest.setInterval(restTime);
    m_poll.setInterval(pollInterval);
    connect(&m_rest, &QTimer::timeout, this, &X11PointerMonitor::endRest);
    connect(&m_poll, &QTimer::timeout, this, &X11PointerMonitor::poll);
    connect(&m_connection, &XcbConnection::eventArrived, this,
            [this](const xcb_generic_event_t *event) {
                m_hasMoved = m_hasMoved || m_input.isOfType(event, XCB_INPUT_RAW_MOTION) ||
                             m_input.isOfType(event, XCB_INPUT_RAW_BUTTON_RELEASE);
            });
    connect(&m_connection, &XcbConnection::drained, this, &X11PointerMonitor::announce);
}

void X11PointerMonitor::start() {
    if (!m_input.isAvailable()) {
        qWarning("The X server has no XInput 2: the pointer is polled.");
    }
    static_cast<void>(position());
    watch(Watch::Movements);
}

XcbPointer<xcb_query_pointer_reply_t> X11PointerMonitor::query() const {
    return m_connection.reply<xcb_query_pointer_reply_t>(
        xcb_query_pointer(m_connection.get(), m_connection.root()));
}

bool X11PointerMonitor::isButtonHeld() const {
    constexpr int buttons = XCB_BUTTON_MASK_1 | XCB_BUTTON_MASK_2 | XCB_BUTTON_MASK_3;
    const auto pointer = query();
    return pointer && (pointer->mask & buttons) != 0;
}

ScreenPoint X11PointerMonitor::position() const {
    if (const auto pointer = query()) {
        m_lastPixels = QPoint(pointer->root_x, pointer->root_y);
    } else {
        m_hasMoved = true; // ask again when the late reply arrives
    }
    return ScreenSpace::current().fromPixels(m_lastPixels);
}

void X11PointerMonitor::watch(Watch watch) {
    if (std::exchange(m_watch, watch) == watch) {
        return;
    }
    const quint32 releases =
        watch == Watch::Releases ? XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_RELEASE : 0;
    m_input.select(watch == Watch::Nothing ? 0 : XCB_INPUT_XI_EVENT_MASK_RAW_MOTION | releases);
    if (watch == Watch::Jumps || (watch != Watch::Nothing && !m_input.isAvailable())) {
        m_poll.start();
    } else {
        m_poll.stop();
    }
}

void X11PointerMonitor::announce() {
    if (m_hasMoved && !m_rest.isActive()) {
        m_hasMoved = false;
        const ScreenPoint now = position();
        if (!m_hasMoved) {
            m_connection.setListening(false);
            m_rest.start();
            Q_EMIT moved(now);
        }
    }
}

void X11PointerMonitor::endRest() {
    m_connection.drain();
    if (!m_rest.isActive()) {
        m_connection.setListening(true);
    }
}

void X11PointerMonitor::poll() {
    const QPoint before = m_lastPixels;
    const ScreenPoint now = position();
    if (m_lastPixels != before) {
        Q_EMIT moved(now);
    }
}

} // namespace perchly
