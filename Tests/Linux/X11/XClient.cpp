#include "XClient.h"

#include <xcb/xtest.h>

namespace perchly {

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
    return XcbPointer<xcb_intern_atom_reply_t>(xcb_intern_atom_reply(m_connection, cookie, nullptr))
        ->atom;
}

void XClient::sync() const {
    free(xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
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
    sendKey(XCB_BUTTON_PRESS, 1);
}

void XClient::releaseButton() const {
    sendKey(XCB_BUTTON_RELEASE, 1);
}

void XClient::typeKey(quint8 keycode) const {
    sendKey(XCB_KEY_PRESS, keycode);
    sendKey(XCB_KEY_RELEASE, keycode);
}

void XClient::sendKey(quint8 event, quint8 code) const {
    xcb_test_fake_input(m_connection, event, code, 0, m_root, 0, 0, 0);
    sync();
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

} // namespace perchly
