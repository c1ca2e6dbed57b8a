#include "OutsidePress.h"

#include <xcb/xinput.h>

namespace perchly {

namespace {

// X reports scrolling in four directions as buttons.
constexpr quint32 firstWheelButton = 4;
constexpr quint32 lastWheelButton = 7;

} // namespace

OutsidePress::OutsidePress(XcbConnection &connection)
    : m_connection(connection)
    , m_input(connection) {
    connect(&connection, &XcbConnection::eventArrived, this, &OutsidePress::handleEvent);
}

void OutsidePress::watch(xcb_window_t window) {
    m_window = window;
    m_input.select(window == XCB_WINDOW_NONE ? 0 : XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS);
}

void OutsidePress::handleEvent(const xcb_generic_event_t *event) {
    if (m_window == XCB_WINDOW_NONE || !m_input.isOfType(event, XCB_INPUT_RAW_BUTTON_PRESS)) {
        return;
    }
    const auto *press = reinterpret_cast<const xcb_input_raw_button_press_event_t *>(event);
    const bool scrolls = press->detail >= firstWheelButton && press->detail <= lastWheelButton;
    if (!scrolls && !isPointerInside()) {
        Q_EMIT pressed();
    }
}

bool OutsidePress::isPointerInside() {
    const auto pointer = m_connection.reply<xcb_query_pointer_reply_t>(
        xcb_query_pointer(m_connection.get(), m_connection.root()));
    return pointer && pointer->child == m_window;
}

} // namespace perchly
