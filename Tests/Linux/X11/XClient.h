#pragma once

#include "XcbPointer.h"

#include <QByteArray>
#include <QList>
#include <QPoint>
#include <QRect>
#include <xcb/xcb.h>

namespace perchly {

/// Another program on the X server, which can also play the user: it moves the pointer and presses
/// keys as devices do. Everything has reached the server when a call returns.
class XClient {
public:
    XClient();
    ~XClient();
    XClient(const XClient &) = delete;
    XClient &operator=(const XClient &) = delete;

    [[nodiscard]] xcb_connection_t *get() const { return m_connection; }
    [[nodiscard]] xcb_window_t root() const { return m_root; }
    [[nodiscard]] xcb_atom_t atom(const QByteArray &name) const;
    /// Waits until the server has handled everything sent.
    void sync() const;

    // The user
    void movePointer(QPoint to) const;
    void click(QPoint at) const;
    void pressButton() const;
    void releaseButton() const;
    void typeKey(quint8 keycode) const;
    /// Presses or releases a key or a button, by the type of its event.
    void sendKey(quint8 event, quint8 code) const;

    // The program
    enum class Managed { Yes, No };
    [[nodiscard]] xcb_window_t makeWindow(const QRect &area, Managed managed = Managed::Yes) const;
    void setProperty(xcb_window_t window, const QByteArray &name, xcb_atom_t type,
                     const QList<quint32> &values) const;

private:
    xcb_connection_t *m_connection = nullptr;
    xcb_window_t m_root = XCB_WINDOW_NONE;
};

} // namespace perchly
