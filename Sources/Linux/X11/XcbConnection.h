#pragma once

#include "XcbPointer.h"

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QObject>
#include <QTimer>
#include <xcb/xcb.h>

#include <chrono>
#include <deque>
#include <memory>
#include <optional>

class QSocketNotifier;

namespace perchly {

/// A host's own line to the X server, beside the toolkit's: events that the toolkit hides, and
/// questions whose wait has an end. Once made, it waits no longer than a quarter of a second for a
/// server that falls silent; until that speaks again, and when it is gone, answers are empty at
/// once. A connection that is lost while the server goes on, or is not there at first, is made
/// anew. Main thread only.
class XcbConnection : public QObject {
    Q_OBJECT
public:
    /// Connects to the server named by DISPLAY, or to the given one. Waits up to two and a quarter
    /// seconds for a server that accepts it and then says nothing.
    explicit XcbConnection(const QByteArray &displayName = {}, QObject *parent = nullptr);
    ~XcbConnection() override;

    /// False once the server refused the connection, and from when it closed it until `restored`.
    [[nodiscard]] bool isAlive() const;

    /// From when the server left a question unanswered until `restored`: an empty answer means
    /// nothing then.
    [[nodiscard]] bool isBehind() const { return m_probe || m_catchUp.isActive(); }

    /// For sending requests. Null if the server could not be reached.
    [[nodiscard]] xcb_connection_t *get() const { return m_connection; }
    [[nodiscard]] xcb_window_t root() const { return m_root; }
    [[nodiscard]] int screenNumber() const { return m_screenNumber; }

    /// Waits for the answer to a request; null after an error or without an answer.
    template <typename Reply, typename Cookie>
    [[nodiscard]] XcbPointer<Reply> reply(Cookie cookie) {
        return XcbPointer<Reply>(static_cast<Reply *>(waitForReply(cookie.sequence)));
    }

    /// Whether requests sent by their _checked variants all succeeded; nothing if the server does
    /// not say so in time.
    [[nodiscard]] std::optional<bool> succeeded(const QList<xcb_void_cookie_t> &cookies);

    /// The atom of that name, made if needed; XCB_ATOM_NONE if the server does not answer.
    [[nodiscard]] xcb_atom_t atom(const QByteArray &name);

    /// The 32-bit values of a window's property; empty when absent or of another format.
    [[nodiscard]] QList<quint32> property(xcb_window_t window, xcb_atom_t name);

    /// Values of a requested property, for asking about many windows at once.
    [[nodiscard]] QList<quint32> property(xcb_get_property_cookie_t cookie);
    [[nodiscard]] xcb_get_property_cookie_t requestProperty(xcb_window_t window, xcb_atom_t name);

    void flush();

    /// While off, events wait in the socket and wake nobody.
    void setListening(bool on);

    /// Tells the events that are there now.
    void drain();

Q_SIGNALS:
    /// One event, which lives as long as the call.
    void eventArrived(const xcb_generic_event_t *event);

    /// All events that were there have been told.
    void drained();

    /// The server answers again: after a silence that left questions unanswered, or on a new
    /// connection, where it has forgotten everything that was selected or grabbed on the old one.
    /// All is to be set up as at first; what was set up before the silence still stands.
    void restored();

private:
    bool open(std::chrono::milliseconds patience);
    void close();
    void openAgain();
    void retryLater();
    void *waitForReply(unsigned int sequence);
    [[nodiscard]] bool isMute();
    void keepQueuedEvents();

    QByteArray m_displayName;
    xcb_connection_t *m_connection = nullptr;
    xcb_window_t m_root = XCB_WINDOW_NONE;
    int m_screenNumber = 0;
    std::unique_ptr<QSocketNotifier> m_notifier;
    std::deque<XcbPointer<xcb_generic_event_t>> m_waiting;
    bool m_isDrainScheduled = false;
    QHash<QByteArray, xcb_atom_t> m_atoms;
    QTimer m_retry;
    int m_retries = 0;                   ///< since the connection was lost
    std::optional<unsigned int> m_probe; ///< the question whose answer ends a silence
    QTimer m_catchUp;                    ///< from the end of a silence to `restored`
};

} // namespace perchly
