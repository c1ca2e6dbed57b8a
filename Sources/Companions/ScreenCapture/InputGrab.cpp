#include "InputGrab.h"

#include <QWindow>

#include <chrono>
#include <xcb/screensaver.h>

namespace perchly {

using namespace std::chrono_literals;

namespace {

constexpr auto grabTimeout = 1s;
constexpr auto grabRetryDelay = 20ms;

} // namespace

InputGrab::InputGrab(QWindow &window)
    : m_window(window)
    , m_deadline(grabTimeout) {
    m_retry.setSingleShot(true);
    connect(&m_retry, &QTimer::timeout, this, &InputGrab::grab);
    m_retry.start(0ms);
    watchScreenSaver();
}

// Fails until the window is mapped, and while another program, such as one with an open menu, holds
// the keyboard. Qt does not report a failed pointer grab, but this window is above all others.
void InputGrab::grab() {
    m_window.setMouseGrabEnabled(true);
    if (m_window.setKeyboardGrabEnabled(true)) {
        return;
    }
    if (m_deadline.hasExpired()) {
        Q_EMIT failed();
    } else {
        m_retry.start(grabRetryDelay);
    }
}

void InputGrab::watchScreenSaver() {
    const auto *extension = xcb_get_extension_data(m_connection.get(), &xcb_screensaver_id);
    const int type = extension == nullptr ? -1 : extension->first_event + XCB_SCREENSAVER_NOTIFY;
    connect(&m_connection, &XcbConnection::eventArrived, this, [this, type](const auto *event) {
        const auto *notice = reinterpret_cast<const xcb_screensaver_notify_event_t *>(event);
        if (event->response_type == type && notice->state == XCB_SCREENSAVER_STATE_ON) {
            Q_EMIT screenSaverStarted();
        }
    });
    xcb_screensaver_select_input(m_connection.get(), m_connection.root(),
                                 XCB_SCREENSAVER_EVENT_NOTIFY_MASK);
    xcb_flush(m_connection.get());
}

} // namespace perchly
