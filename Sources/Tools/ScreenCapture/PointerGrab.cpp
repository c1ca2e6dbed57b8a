#include "PointerGrab.h"

#include <QSocketNotifier>

#include <cstdlib>
#include <memory>
#include <thread>
#include <xcb/xcb.h>

namespace perchly {

using namespace std::chrono_literals;
using std::chrono::steady_clock;

namespace {

constexpr xcb_keysym_t escape = 0xff1b;
constexpr auto betweenTries = 20ms;

struct Freed {
    void operator()(void *memory) const { std::free(memory); }
};
template <typename T>
using Owned = std::unique_ptr<T, Freed>;

xcb_window_t rootOf(xcb_connection_t *connection) {
    return xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
}

} // namespace

PointerGrab::PointerGrab(xcb_connection_t *connection)
    : m_connection(connection) {}

PointerGrab::~PointerGrab() {
    xcb_ungrab_keyboard(m_connection, XCB_CURRENT_TIME);
    xcb_ungrab_pointer(m_connection, XCB_CURRENT_TIME);
    xcb_flush(m_connection);
}

bool PointerGrab::take(std::chrono::milliseconds patience) {
    const auto end = steady_clock::now() + patience;
    while (!tryToTake()) {
        if (steady_clock::now() >= end || xcb_connection_has_error(m_connection) != 0) {
            return false;
        }
        std::this_thread::sleep_for(betweenTries);
    }
    const Owned<xcb_query_pointer_reply_t> pointer(xcb_query_pointer_reply(
        m_connection, xcb_query_pointer(m_connection, rootOf(m_connection)), nullptr));
    if (pointer) {
        m_position = {pointer->root_x, pointer->root_y};
    }
    m_notifier =
        new QSocketNotifier(xcb_get_file_descriptor(m_connection), QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, &PointerGrab::readEvents);
    QMetaObject::invokeMethod(this, &PointerGrab::readEvents, Qt::QueuedConnection);
    return true;
}

bool PointerGrab::tryToTake() {
    const xcb_window_t root = rootOf(m_connection);
    constexpr std::uint16_t events =
        XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_BUTTON_RELEASE | XCB_EVENT_MASK_POINTER_MOTION;
    const auto pointerCookie =
        xcb_grab_pointer(m_connection, 0, root, events, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC,
                         XCB_NONE, XCB_NONE, XCB_CURRENT_TIME);
    const auto keyboardCookie = xcb_grab_keyboard(m_connection, 0, root, XCB_CURRENT_TIME,
                                                  XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    const Owned<xcb_grab_pointer_reply_t> pointer(
        xcb_grab_pointer_reply(m_connection, pointerCookie, nullptr));
    const Owned<xcb_grab_keyboard_reply_t> keyboard(
        xcb_grab_keyboard_reply(m_connection, keyboardCookie, nullptr));
    return pointer && pointer->status == XCB_GRAB_STATUS_SUCCESS && keyboard &&
           keyboard->status == XCB_GRAB_STATUS_SUCCESS;
}

void PointerGrab::readEvents() {
    while (const Owned<xcb_generic_event_t> event{xcb_poll_for_event(m_connection)}) {
        const auto *button = reinterpret_cast<const xcb_button_press_event_t *>(event.get());
        switch (event->response_type & 0x7f) {
        case XCB_MOTION_NOTIFY:
            m_position = {button->root_x, button->root_y};
            Q_EMIT moved(m_position);
            break;
        case XCB_BUTTON_PRESS:
            m_position = {button->root_x, button->root_y};
            if (button->detail == XCB_BUTTON_INDEX_1) {
                Q_EMIT pressed(m_position);
            } else if (button->detail <= XCB_BUTTON_INDEX_3) { // the others are the wheel's
                Q_EMIT cancelled();
            }
            break;
        case XCB_BUTTON_RELEASE:
            m_position = {button->root_x, button->root_y};
            if (button->detail == XCB_BUTTON_INDEX_1) {
                Q_EMIT released(m_position);
            }
            break;
        case XCB_KEY_PRESS:
            handleKey(button->detail);
            break;
        default:
            break;
        }
    }
    if (xcb_connection_has_error(m_connection) != 0) {
        m_notifier->setEnabled(false);
        Q_EMIT lost();
    }
}

void PointerGrab::handleKey(unsigned char keycode) {
    const Owned<xcb_get_keyboard_mapping_reply_t> map(xcb_get_keyboard_mapping_reply(
        m_connection, xcb_get_keyboard_mapping(m_connection, keycode, 1), nullptr));
    if (map && map->keysyms_per_keycode > 0 &&
        xcb_get_keyboard_mapping_keysyms(map.get())[0] == escape) {
        Q_EMIT cancelled();
    }
}

} // namespace perchly
