#pragma once

#include "XcbPointer.h"

#include <QByteArray>
#include <QHash>
#include <QList>
#include <xcb/xfixes.h>

#include <chrono>
#include <functional>
#include <memory>
#include <sys/socket.h>

namespace perchly {

/// One format of a copy, as its owner sent it.
struct SelectionAnswer {
    enum class Outcome {
        Delivered,
        Refused,
        TooLong, ///< longer than the limit; nothing is kept
        Silent,  ///< no answer in time, or the copy was replaced meanwhile
    };

    Outcome outcome = Outcome::Silent;
    xcb_atom_t type = XCB_ATOM_NONE;
    int format = 0; ///< bits per value
    QByteArray bytes = {};
};

/// A connection to the X server for reading selections in a thread that may block. Not thread-safe,
/// except shutDown().
class SelectionClient {
public:
    using TimePoint = std::chrono::steady_clock::time_point;
    using OwnerChange = xcb_xfixes_selection_notify_event_t;
    using OwnerChanged = std::function<void(const OwnerChange &change)>;

    /// Connects to the server in DISPLAY. Reports each change of the clipboard's owner, from within
    /// handleEvents() or fetch().
    explicit SelectionClient(OwnerChanged ownerChanged);

    /// False if the server is gone or cannot report owner changes.
    [[nodiscard]] bool isAlive() const;
    /// Readable when handleEvents() has something to do, which fetch() may also cause.
    [[nodiscard]] int descriptor() const { return xcb_get_file_descriptor(m_connection.get()); }
    void handleEvents();
    /// Ends the connection and every wait on it. Any thread.
    void shutDown() const { ::shutdown(descriptor(), SHUT_RDWR); }

    [[nodiscard]] xcb_atom_t atom(const QByteArray &name);
    [[nodiscard]] xcb_window_t ownerOf(xcb_atom_t selection) const;
    [[nodiscard]] bool isSameClient(xcb_window_t one, xcb_window_t other) const;

    /// Requests one format from the owner of a selection and waits for all of it: until `latest`,
    /// at most three seconds for each part, and for CLIPBOARD until its owner changes. Once an
    /// owner starts sending, all of its data is read, by later calls if this one gives up.
    [[nodiscard]] SelectionAnswer fetch(xcb_atom_t selection, xcb_atom_t target, qsizetype maxBytes,
                                        TimePoint latest);

private:
    [[nodiscard]] SelectionAnswer receive(xcb_window_t window, qsizetype maxBytes,
                                          TimePoint latest);
    [[nodiscard]] bool waitFor(xcb_window_t window, int type, TimePoint latest);
    [[nodiscard]] SelectionAnswer take(xcb_window_t window, qsizetype maxBytes);
    [[nodiscard]] XcbPointer<xcb_generic_event_t> nextEvent() const;
    void handle(const xcb_generic_event_t &event);

    std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)> m_connection;
    OwnerChanged m_ownerChanged;
    QHash<QByteArray, xcb_atom_t> m_atoms;
    xcb_window_t m_root = XCB_WINDOW_NONE;
    int m_ownerEvent = 0;                 ///< 0 if the server cannot report owner changes
    xcb_atom_t m_fetched = XCB_ATOM_NONE; ///< the selection that fetch() reads
    bool m_isInterrupted = false;         ///< its owner changed since fetch() was called
    QList<xcb_window_t> m_discarded;      ///< windows of abandoned transfers
};

} // namespace perchly
