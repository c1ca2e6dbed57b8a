#pragma once

#include "XcbPointer.h"

#include <QHash>
#include <QList>
#include <QObject>
#include <xcb/xcb.h>

#include <memory>

class QSocketNotifier;

namespace perchly {

/// A second connection to the X server, for events that Qt hides and for replies with a timeout. A
/// stalled server delays the caller by at most half a second; after that, requests fail at once
/// until the server sends something. Without a server, or once it has closed the connection,
/// requests are ignored and replies are null. Main thread only.
class XcbConnection : public QObject {
    Q_OBJECT
public:
    /// Connects to the server in DISPLAY.
    explicit XcbConnection(QObject *parent = nullptr);
    ~XcbConnection() override;

    [[nodiscard]] bool isAlive() const { return xcb_connection_has_error(m_connection) == 0; }

    /// For sending requests; never null.
    [[nodiscard]] xcb_connection_t *get() const { return m_connection; }
    [[nodiscard]] xcb_window_t root() const { return m_root; }

    /// Waits for the reply to a request; null on error or timeout.
    template <typename Reply, typename Cookie>
    [[nodiscard]] XcbPointer<Reply> reply(Cookie cookie) {
        return XcbPointer<Reply>(static_cast<Reply *>(waitForReply(cookie.sequence)));
    }

    /// Waits until the server has handled all requests sent so far; false on timeout.
    [[nodiscard]] bool sync();

    /// Whether requests sent by their _checked variants all succeeded; false on timeout.
    [[nodiscard]] bool succeeded(const QList<xcb_void_cookie_t> &cookies);

    /// The atom with that name, created if needed; XCB_ATOM_NONE on timeout.
    [[nodiscard]] xcb_atom_t atom(const QByteArray &name);

    /// The 32-bit values of a window's property; empty if absent or in another format.
    [[nodiscard]] QList<quint32> property(xcb_window_t window, xcb_atom_t name);

    /// The same in two steps, to query many windows at once.
    [[nodiscard]] xcb_get_property_cookie_t requestProperty(xcb_window_t window, xcb_atom_t name);
    [[nodiscard]] QList<quint32> property(xcb_get_property_cookie_t cookie);

    /// Sets the mask of events to receive from a window.
    void selectEvents(xcb_window_t window, quint32 mask);

    /// While off, events stay in the socket.
    void setListening(bool on);

    /// Emits the events that have arrived.
    void drain();

Q_SIGNALS:
    /// The event is valid only during the call.
    void eventArrived(const xcb_generic_event_t *event);

    /// All events that had arrived were emitted, or the server closed the connection.
    void drained();

private:
    void *waitForReply(unsigned int sequence);

    xcb_connection_t *m_connection;
    xcb_window_t m_root = XCB_WINDOW_NONE;
    std::unique_ptr<QSocketNotifier> m_notifier;
    QHash<QByteArray, xcb_atom_t> m_atoms;
    bool m_isStalled = false; ///< a reply timed out and nothing has arrived since
};

} // namespace perchly
