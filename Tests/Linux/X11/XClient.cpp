#include "XClient.h"

#include <QThread>
#include <xcb/xtest.h>

#include <algorithm>

namespace perchly {

namespace {

constexpr quint8 controlKey = 37;
constexpr quint8 altKey = 64;

template <typename Reply>
XcbPointer<Reply> owned(Reply *reply) {
    return XcbPointer<Reply>(reply);
}

} // namespace

XClient::XClient()
    : m_connection(xcb_connect(nullptr, nullptr)) {
    if (xcb_connection_has_error(m_connection))
        qFatal("The test has no X server.");
    m_root = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root;
}

XClient::~XClient() {
    xcb_disconnect(m_connection);
}

xcb_atom_t XClient::atom(const QByteArray &name) const {
    const auto cookie =
        xcb_intern_atom(m_connection, 0, static_cast<quint16>(name.size()), name.constData());
    return owned(xcb_intern_atom_reply(m_connection, cookie, nullptr))->atom;
}

void XClient::sync() const {
    owned(xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
}

void XClient::movePointer(QPoint to) const {
    xcb_test_fake_input(m_connection, XCB_MOTION_NOTIFY, 0, 0, m_root, static_cast<qint16>(to.x()),
                        static_cast<qint16>(to.y()), 0);
    sync();
}

void XClient::click(QPoint at) const {
    movePointer(at);
    pressButton();
    releaseButton();
}

void XClient::pressButton() const {
    xcb_test_fake_input(m_connection, XCB_BUTTON_PRESS, 1, 0, m_root, 0, 0, 0);
    sync();
}

void XClient::releaseButton() const {
    xcb_test_fake_input(m_connection, XCB_BUTTON_RELEASE, 1, 0, m_root, 0, 0, 0);
    sync();
}

void XClient::pressKey(quint8 keycode) const {
    xcb_test_fake_input(m_connection, XCB_KEY_PRESS, keycode, 0, m_root, 0, 0, 0);
    sync();
}

void XClient::releaseKey(quint8 keycode) const {
    xcb_test_fake_input(m_connection, XCB_KEY_RELEASE, keycode, 0, m_root, 0, 0, 0);
    sync();
}

void XClient::typeKey(quint8 keycode) const {
    pressKey(keycode);
    releaseKey(keycode);
    // No finger is fast enough to press again in the same millisecond.
    QThread::msleep(3);
}

void XClient::pressChord(quint8 keycode) const {
    pressKey(controlKey);
    pressKey(altKey);
    pressKey(keycode);
}

void XClient::releaseChord(quint8 keycode) const {
    releaseKey(keycode);
    releaseKey(altKey);
    releaseKey(controlKey);
    // No finger is fast enough to press again in the same millisecond.
    QThread::msleep(3);
}

void XClient::typeChord(quint8 keycode) const {
    pressChord(keycode);
    releaseChord(keycode);
}

xcb_window_t XClient::makeWindow(const QRect &area, Managed managed) const {
    const xcb_window_t window = xcb_generate_id(m_connection);
    const quint32 values[] = {managed == Managed::No, XCB_EVENT_MASK_KEY_PRESS |
                                                          XCB_EVENT_MASK_BUTTON_PRESS |
                                                          XCB_EVENT_MASK_VISIBILITY_CHANGE};
    xcb_create_window(m_connection, XCB_COPY_FROM_PARENT, window, m_root,
                      static_cast<qint16>(area.x()), static_cast<qint16>(area.y()),
                      static_cast<quint16>(area.width()), static_cast<quint16>(area.height()), 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                      XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK, values);
    sync();
    return window;
}

void XClient::setProperty(xcb_window_t window, const QByteArray &name, xcb_atom_t type,
                          const QList<quint32> &values) const {
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, window, atom(name), type, 32,
                        static_cast<quint32>(values.size()), values.constData());
    sync();
}

void XClient::setAtoms(xcb_window_t window, const QByteArray &name,
                       const QList<QByteArray> &values) const {
    QList<quint32> atoms;
    for (const QByteArray &value : values)
        atoms.append(atom(value));
    setProperty(window, name, XCB_ATOM_ATOM, atoms);
}

void XClient::map(xcb_window_t window) const {
    xcb_map_window(m_connection, window);
    sync();
}

void XClient::destroy(xcb_window_t window) const {
    xcb_destroy_window(m_connection, window);
    sync();
}

void XClient::raise(xcb_window_t window) const {
    const quint32 mode = XCB_STACK_MODE_ABOVE;
    xcb_configure_window(m_connection, window, XCB_CONFIG_WINDOW_STACK_MODE, &mode);
    sync();
}

void XClient::focus(xcb_window_t window) const {
    if (hasWindowManager()) {
        xcb_client_message_event_t message{};
        message.response_type = XCB_CLIENT_MESSAGE;
        message.format = 32;
        message.window = window;
        message.type = atom("_NET_ACTIVE_WINDOW");
        message.data.data32[0] = 2;
        xcb_send_event(m_connection, 0, m_root,
                       XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                       reinterpret_cast<const char *>(&message));
    } else {
        xcb_set_input_focus(m_connection, XCB_INPUT_FOCUS_PARENT, window, XCB_CURRENT_TIME);
    }
    sync();
}

bool XClient::hasWindowManager() const {
    const auto reply = owned(xcb_get_property_reply(
        m_connection,
        xcb_get_property(m_connection, 0, m_root, atom("_NET_SUPPORTING_WM_CHECK"), XCB_ATOM_WINDOW,
                         0, 1),
        nullptr));
    return reply && reply->value_len == 1;
}

xcb_window_t XClient::focusedWindow() const {
    return owned(
               xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr))
        ->focus;
}

bool XClient::isViewable(xcb_window_t window) const {
    const auto reply = owned(xcb_get_window_attributes_reply(
        m_connection, xcb_get_window_attributes(m_connection, window), nullptr));
    return reply && reply->map_state == XCB_MAP_STATE_VIEWABLE;
}

QRect XClient::areaOf(xcb_window_t window) const {
    const auto size = owned(
        xcb_get_geometry_reply(m_connection, xcb_get_geometry(m_connection, window), nullptr));
    const auto place = owned(xcb_translate_coordinates_reply(
        m_connection, xcb_translate_coordinates(m_connection, window, m_root, 0, 0), nullptr));
    return size && place ? QRect(place->dst_x, place->dst_y, size->width, size->height) : QRect();
}

bool XClient::isAbove(xcb_window_t upper, xcb_window_t lower) const {
    const auto tree =
        owned(xcb_query_tree_reply(m_connection, xcb_query_tree(m_connection, m_root), nullptr));
    const xcb_window_t *windows = xcb_query_tree_children(tree.get());
    const xcb_window_t *end = windows + xcb_query_tree_children_length(tree.get());
    return std::find(windows, end, topLevelOf(upper)) > std::find(windows, end, topLevelOf(lower));
}

int XClient::countEvents(quint8 type, xcb_window_t window) {
    collectEvents();
    return static_cast<int>(m_events.count(std::pair{type, window}));
}

// The window manager's frame, or the window itself.
xcb_window_t XClient::topLevelOf(xcb_window_t window) const {
    for (;;) {
        const auto tree = owned(
            xcb_query_tree_reply(m_connection, xcb_query_tree(m_connection, window), nullptr));
        if (!tree || tree->parent == m_root)
            return window;
        window = tree->parent;
    }
}

void XClient::collectEvents() {
    sync();
    while (const auto event = owned(xcb_poll_for_event(m_connection))) {
        const quint8 type = event->response_type & 0x7f;
        if (type == XCB_KEY_PRESS || type == XCB_BUTTON_PRESS)
            m_events.append(
                {type, reinterpret_cast<const xcb_button_press_event_t *>(event.get())->event});
    }
}

} // namespace perchly
