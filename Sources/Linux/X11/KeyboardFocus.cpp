#include "KeyboardFocus.h"

#include "ToolkitConnection.h"

namespace perchly {

namespace {

constexpr std::chrono::milliseconds retryInterval{10};
constexpr int mostTries = 50;
// How long a window manager may take before the focus is moved without it.
constexpr std::chrono::milliseconds managerPatience{150};
constexpr quint32 fromPager = 2;

} // namespace

KeyboardFocus::KeyboardFocus(XcbConnection &connection, QObject *parent)
    : QObject(parent)
    , m_connection(connection) {
    m_retry.setInterval(retryInterval);
    m_leave.setSingleShot(true);
    m_leave.setInterval(managerPatience);
    connect(&m_retry, &QTimer::timeout, this, &KeyboardFocus::tryAgain);
    connect(&m_leave, &QTimer::timeout, this, [this] {
        if (current() != m_leaving) {
            return;
        }
        if (m_wanted == XCB_WINDOW_NONE) {
            restoreDirectly();
        } else {
            startTrying();
        }
    });
}

xcb_window_t KeyboardFocus::current() {
    if (!m_connection.isAlive()) {
        return XCB_WINDOW_NONE;
    }
    const auto answer =
        m_connection.reply<xcb_get_input_focus_reply_t>(xcb_get_input_focus(m_connection.get()));
    return answer ? answer->focus : xcb_window_t{XCB_WINDOW_NONE};
}

void KeyboardFocus::take(xcb_window_t window) {
    m_retry.stop();
    m_leave.stop();
    const xcb_window_t holder = current();
    if (holder == window) {
        return;
    }
    m_before = {activeWindow(), holder};
    if (setFocus(window)) {
        return;
    }
    m_wanted = window;
    startTrying();
}

void KeyboardFocus::giveBack(xcb_window_t from) {
    m_retry.stop();
    if (current() != from) {
        return;
    }
    if (!hasWindowManager() || !isViewable(m_before.active)) {
        restoreDirectly();
        return;
    }
    askWindowManager(m_before.active);
    m_wanted = XCB_WINDOW_NONE;
    m_leaving = from;
    m_leave.start();
}

void KeyboardFocus::pressedOutside(xcb_window_t holder) {
    m_wanted = XCB_WINDOW_NONE;
    m_leaving = holder;
    m_leave.start();
}

void KeyboardFocus::retakeFromNobody(xcb_window_t window) {
    const xcb_window_t holder = current();
    if (holder != window && isNobody(holder)) {
        setFocus(window);
    }
}

// A window manager puts the focus aside on an unmanaged window of its own. Some toolkits hold
// theirs out of sight as well, but on a window inside one that the person sees.
bool KeyboardFocus::isNobody(xcb_window_t holder) {
    if (holder == XCB_WINDOW_NONE || holder == XCB_INPUT_FOCUS_POINTER_ROOT ||
        holder == m_connection.root()) {
        return true;
    }
    if (!m_connection.isAlive()) {
        return false;
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
    // Ask first: a window minimised during the round trips below would come back.
    askWindowManager(window);
    m_leave.stop();
    m_wanted = window;
    if (!hasWindowManager()) {
        startTrying();
        return;
    }
    m_retry.stop();
    m_leaving = current();
    m_leave.start();
}

// A manager that died leaves its property on the root, but not the window that it names.
bool KeyboardFocus::hasWindowManager() {
    const xcb_atom_t check = m_connection.atom("_NET_SUPPORTING_WM_CHECK");
    const QList<quint32> named = m_connection.property(m_connection.root(), check);
    return !named.isEmpty() && m_connection.property(named.first(), check) == named;
}

xcb_window_t KeyboardFocus::activeWindow() {
    if (!hasWindowManager()) {
        return XCB_WINDOW_NONE;
    }
    const QList<quint32> active =
        m_connection.property(m_connection.root(), m_connection.atom("_NET_ACTIVE_WINDOW"));
    return active.isEmpty() ? xcb_window_t{XCB_WINDOW_NONE} : active.first();
}

bool KeyboardFocus::isViewable(xcb_window_t window) {
    if (window == XCB_WINDOW_NONE || !m_connection.isAlive()) {
        return false;
    }
    const auto answer = m_connection.reply<xcb_get_window_attributes_reply_t>(
        xcb_get_window_attributes(m_connection.get(), window));
    return answer && answer->map_state == XCB_MAP_STATE_VIEWABLE;
}

// The toolkit's time of the last event does not know of hot keys, and a focus set with an old time
// is ignored.
bool KeyboardFocus::setFocus(xcb_window_t window) {
    return m_connection.isAlive() &&
           m_connection
               .succeeded({xcb_set_input_focus_checked(m_connection.get(), XCB_INPUT_FOCUS_PARENT,
                                                       window, XCB_CURRENT_TIME)})
               .value_or(false);
}

// Sent on the toolkit's connection, so that it arrives after the window was shown there.
void KeyboardFocus::askWindowManager(xcb_window_t window) {
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = m_connection.atom("_NET_ACTIVE_WINDOW");
    message.data.data32[0] = fromPager;
    message.data.data32[1] = XCB_CURRENT_TIME;
    if (xcb_connection_t *toolkit = toolkitConnection()) {
        xcb_send_event(toolkit, 0, m_connection.root(),
                       XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                       reinterpret_cast<const char *>(&message));
        xcb_flush(toolkit);
    }
}

void KeyboardFocus::restoreDirectly() {
    const bool isGone = m_before.focus == XCB_WINDOW_NONE;
    if (isGone || !setFocus(m_before.focus)) {
        setFocus(XCB_INPUT_FOCUS_POINTER_ROOT);
    }
}

void KeyboardFocus::startTrying() {
    m_triesLeft = mostTries;
    m_retry.start();
    tryAgain();
}

void KeyboardFocus::tryAgain() {
    if (--m_triesLeft < 0 || (isViewable(m_wanted) && setFocus(m_wanted))) {
        m_retry.stop();
    }
}

} // namespace perchly
