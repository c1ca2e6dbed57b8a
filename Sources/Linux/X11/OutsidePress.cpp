#include "OutsidePress.h"

#include <xcb/xinput.h>

namespace perchly {

namespace {

// The four directions of scrolling are buttons to the server.
constexpr quint32 firstWheelButton = 4;
constexpr quint32 lastWheelButton = 7;

} // namespace

OutsidePress::OutsidePress(XcbConnection &connection, QObject *parent)
    : QObject(parent)
    , m_connection(connection) {
    connect(&connection, &XcbConnection::eventArrived, this, &OutsidePress::handleEvent);
    connect(&connection, &XcbConnection::restored, this, [this] {
        begin();
        watch(m_window);
    });
    begin();
}

void OutsidePress::begin() {
    if (!m_connection.isAlive()) {
        return;
    }
    const auto *extension = xcb_get_extension_data(m_connection.get(), &xcb_input_id);
    // Before version 2.1 raw presses stop while another program holds the pointer.
    if (extension && extension->present &&
        m_connection.reply<xcb_input_xi_query_version_reply_t>(
            xcb_input_xi_query_version(m_connection.get(), 2, 2))) {
        m_inputOpcode = extension->major_opcode;
    }
}

void OutsidePress::watch(xcb_window_t window) {
    m_window = window;
    select(window == XCB_WINDOW_NONE ? 0 : XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS);
}

void OutsidePress::select(quint32 events) {
    if (m_inputOpcode == 0 || !m_connection.isAlive()) {
        return;
    }
    struct {
        xcb_input_event_mask_t head{XCB_INPUT_DEVICE_ALL_MASTER, 1};
        quint32 mask = 0;
    } selection{.mask = events};
    xcb_input_xi_select_events(m_connection.get(), m_connection.root(), 1, &selection.head);
    m_connection.flush();
}

void OutsidePress::handleEvent(const xcb_generic_event_t *event) {
    const auto *generic = reinterpret_cast<const xcb_ge_generic_event_t *>(event);
    if ((event->response_type & 0x7f) != XCB_GE_GENERIC || generic->extension != m_inputOpcode ||
        generic->event_type != XCB_INPUT_RAW_BUTTON_PRESS || m_window == XCB_WINDOW_NONE) {
        return;
    }
    const auto *press = reinterpret_cast<const xcb_input_raw_button_press_event_t *>(event);
    const bool scrolls = press->detail >= firstWheelButton && press->detail <= lastWheelButton;
    if (!scrolls && !isPointerInside()) {
        Q_EMIT pressed();
    }
}

bool OutsidePress::isPointerInside() {
    const auto answer = m_connection.reply<xcb_query_pointer_reply_t>(
        xcb_query_pointer(m_connection.get(), m_connection.root()));
    return answer && answer->child == m_window;
}

} // namespace perchly
