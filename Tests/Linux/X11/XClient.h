#pragma once

#include "XcbPointer.h"

#include <QByteArray>
#include <QList>
#include <QPoint>
#include <QRect>
#include <xcb/xcb.h>
#include <xcb/xtest.h>

namespace perchly {

/// Another program on the X server, which can also act as the user: it moves the pointer and
/// presses its button. When a call returns, the server has handled everything.
class XClient {
public:
    XClient() {
        if (xcb_connection_has_error(m_connection))
            qFatal("The test has no X server.");
    }
    ~XClient() { xcb_disconnect(m_connection); }
    XClient(const XClient &) = delete;
    XClient &operator=(const XClient &) = delete;

    [[nodiscard]] xcb_connection_t *get() const { return m_connection; }
    [[nodiscard]] xcb_window_t root() const {
        return xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root;
    }
    [[nodiscard]] xcb_atom_t atom(const QByteArray &name) const {
        const auto cookie = xcb_intern_atom(m_connection, 0, quint16(name.size()), name);
        const XcbPointer<xcb_intern_atom_reply_t> reply(
            xcb_intern_atom_reply(m_connection, cookie, nullptr));
        return reply->atom;
    }
    /// Waits until the server has handled all requests.
    void sync() const {
        free(xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
    }

    // The user
    void movePointer(QPoint to) const { fakeInput(XCB_MOTION_NOTIFY, 0, to); }
    void pressButton() const { fakeInput(XCB_BUTTON_PRESS, 1, {}); }
    void releaseButton() const { fakeInput(XCB_BUTTON_RELEASE, 1, {}); }

    // The program
    enum class Managed { Yes, No };
    [[nodiscard]] xcb_window_t makeWindow(const QRect &area, Managed managed = Managed::Yes) const {
        const xcb_window_t window = xcb_generate_id(m_connection);
        const quint32 overrideRedirect = managed == Managed::No;
        xcb_create_window(m_connection, XCB_COPY_FROM_PARENT, window, root(), qint16(area.x()),
                          qint16(area.y()), quint16(area.width()), quint16(area.height()), 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                          XCB_CW_OVERRIDE_REDIRECT, &overrideRedirect);
        sync();
        return window;
    }
    void setProperty(xcb_window_t window, const QByteArray &name, xcb_atom_t type,
                     const QList<quint32> &values) const {
        xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, window, atom(name), type, 32,
                            quint32(values.size()), values.constData());
        sync();
    }

private:
    void fakeInput(quint8 event, quint8 code, QPoint at) const {
        xcb_test_fake_input(m_connection, event, code, 0, root(), qint16(at.x()), qint16(at.y()),
                            0);
        sync();
    }

    xcb_connection_t *m_connection = xcb_connect(nullptr, nullptr);
};

} // namespace perchly
