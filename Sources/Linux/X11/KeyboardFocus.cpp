#include "KeyboardFocus.h"

#include "QtConnection.h"

namespace perchly {

namespace {

// How long to wait for the window manager, if there is one, before setting the focus directly.
constexpr std::chrono::milliseconds managerTimeout{150};
constexpr quint32 fromPager = 2;

} // namespace

KeyboardFocus::KeyboardFocus(XcbConnection &connection)
    : m_connection(connection) {
    m_leave.setSingleShot(true);
    m_leave.setInterval(managerTimeout);
    connect(&m_leave, &QTimer::timeout, this, [this] {
        if (current() != m_leaving) {
            return;
        }
        if (m_wanted == XCB_WINDOW_NONE) {
            restoreDirectly();
        } else {
            setFocus(m_wanted);
        }
    });
}

xcb_window_t KeyboardFocus::current() {
    const auto answer =
        m_connection.reply<xcb_get_input_focus_reply_t>(xcb_get_input_focus(m_connection.get()));
    return answer ? answer->focus : xcb_window_t{XCB_WINDOW_NONE};
}

bool KeyboardFocus::isAt(xcb_window_t window) {
    return current() == window && (!m_isXWayland || activeWindow() != XCB_WINDOW_NONE);
}

void KeyboardFocus::take(xcb_window_t window) {
    m_leave.stop();
    const xcb_window_t holder = current();
    if (holder != window) {
        m_before = {activeWindow(), holder};
        setFocus(window);
    }
}

void KeyboardFocus::giveBack(xcb_window_t from) {
    if (current() != from) {
        return;
    }
    if (isViewable(m_before.active)) {
        askWindowManager(m_before.active);
        expectLeaving(from, XCB_WINDOW_NONE);
    } else {
        restoreDirectly();
    }
}

void KeyboardFocus::pressedOutside(xcb_window_t holder) {
    expectLeaving(holder, XCB_WINDOW_NONE);
}

void KeyboardFocus::retakeFromNobody(xcb_window_t window) {
    const xcb_window_t holder = current();
    if (holder != window && !m_isXWayland && isNobody(holder)) {
        setFocus(window);
    }
}

// A window manager parks the focus on its own unmanaged window outside the screen. Some toolkits
// have hidden focus windows as well, but inside a visible window.
bool KeyboardFocus::isNobody(xcb_window_t holder) {
    if (holder == XCB_WINDOW_NONE || holder == XCB_INPUT_FOCUS_POINTER_ROOT ||
        holder == m_connection.root()) {
        return true;
    }
    const auto treeCookie = xcb_query_tree(m_connection.get(), holder);
    const auto attributesCookie = xcb_get_window_attributes(m_connection.get(), holder);
    const auto placeCookie = xcb_get_geometry(m_connection.get(), holder);
    const auto tree = m_connection.reply<xcb_query_tree_reply_t>(treeCookie);
    const auto attributes = m_connection.reply<xcb_get_window_attributes_reply_t>(attributesCookie);
    const auto place = m_connection.reply<xcb_get_geometry_reply_t>(placeCookie);
    return tree && attributes && place && tree->parent == m_connection.root() &&
           attributes->override_redirect &&
           (place->x + place->width <= 0 || place->y + place->height <= 0);
}

void KeyboardFocus::activate(xcb_window_t window) {
    askWindowManager(window);
    expectLeaving(current(), window);
}

xcb_window_t KeyboardFocus::activeWindow() {
    const QList<quint32> active =
        m_connection.property(m_connection.root(), m_connection.atom("_NET_ACTIVE_WINDOW"));
    return active.isEmpty() ? xcb_window_t{XCB_WINDOW_NONE} : active.first();
}

bool KeyboardFocus::isViewable(xcb_window_t window) {
    const auto answer = m_connection.reply<xcb_get_window_attributes_reply_t>(
        xcb_get_window_attributes(m_connection.get(), window));
    return answer && answer->map_state == XCB_MAP_STATE_VIEWABLE;
}

// Qt's time of the last event ignores hot keys, and X ignores a focus request with an old time.
bool KeyboardFocus::setFocus(xcb_window_t window) {
    return m_connection.succeeded({xcb_set_input_focus_checked(
        m_connection.get(), XCB_INPUT_FOCUS_PARENT, window, XCB_CURRENT_TIME)});
}

// Sent on Qt's connection, so that it arrives after Qt has shown the window.
void KeyboardFocus::askWindowManager(xcb_window_t window) {
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = m_connection.atom("_NET_ACTIVE_WINDOW");
    message.data.data32[0] = fromPager;
    message.data.data32[1] = XCB_CURRENT_TIME;
    if (xcb_connection_t *qt = qtConnection()) {
        xcb_send_event(qt, 0, m_connection.root(),
                       XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                       reinterpret_cast<const char *>(&message));
        xcb_flush(qt);
    }
}

void KeyboardFocus::restoreDirectly() {
    const bool isGone = m_before.focus == XCB_WINDOW_NONE;
    const bool hadWayland = m_isXWayland && !isGone && isNobody(m_before.focus);
    if (isGone || hadWayland || !setFocus(m_before.focus)) {
        // At the root, a Wayland compositor gives it to the window of Wayland that had it.
        setFocus(m_isXWayland ? m_connection.root() : xcb_window_t{XCB_INPUT_FOCUS_POINTER_ROOT});
    }
}

void KeyboardFocus::expectLeaving(xcb_window_t holder, xcb_window_t wanted) {
    m_leaving = holder;
    m_wanted = wanted;
    m_leave.start();
}

} // namespace perchly
