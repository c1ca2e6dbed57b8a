#pragma once

#include <QByteArray>
#include <xcb/xcb.h>

#include <chrono>
#include <optional>
#include <vector>

namespace perchly {

class SelectionConnection;

/// Hands data to the windows of other programs, in increments when it is long. Not for the main
/// thread.
class SelectionSending {
public:
    using TimePoint = std::chrono::steady_clock::time_point;

    explicit SelectionSending(const SelectionConnection &connection)
        : m_connection(connection) {}

    /// Puts the data into the window's property, or begins to.
    void send(xcb_window_t window, xcb_atom_t property, xcb_atom_t type, const QByteArray &bytes);

    void handleEvent(const xcb_generic_event_t &event);
    [[nodiscard]] std::optional<TimePoint> nextDeadline() const;
    /// Leaves those alone that have stopped reading.
    void handleDeadlines();

private:
    struct Outgoing {
        xcb_window_t window;
        xcb_atom_t property;
        xcb_atom_t type;
        QByteArray bytes;
        qsizetype sent;
        TimePoint deadline;
    };

    using Position = std::vector<Outgoing>::iterator;

    [[nodiscard]] bool sendNext(Outgoing &outgoing) const;
    Position remove(Position position);
    void watch(xcb_window_t window, quint32 events) const;

    const SelectionConnection &m_connection;
    std::vector<Outgoing> m_outgoing;
};

} // namespace perchly
