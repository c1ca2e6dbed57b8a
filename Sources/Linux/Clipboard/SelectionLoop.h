#pragma once

#include "CopyFilter.h"
#include "SelectionConnection.h"
#include "SelectionOffer.h"
#include "SelectionReading.h"
#include "SelectionSending.h"
#include "SelectionTransfers.h"

#include <map>
#include <memory>
#include <optional>

namespace perchly {

/// What of the clipboard outlives a connection.
struct SelectionMemory {
    bool isFirst = true; ///< there has been no connection yet
    quint64 copies = 0;  ///< of other programs, so far
    quint64 write = 0;   ///< the last of ours that took effect
    std::optional<SelectionContents> ours;
    quint64 ourWrite = 0;   ///< the number of `ours`
    bool isWaiting = false; ///< `ours` was never the clipboard's
};

/// The clipboard as one thread sees it: follows who owns it, reads it and offers our own copies.
/// That thread, which is not the main one, calls turn() whenever there may be something to do.
class SelectionLoop {
public:
    using TimePoint = std::chrono::steady_clock::time_point;

    /// Called in that thread.
    struct Listener {
        /// Another program made a copy, after ours of that number.
        std::function<void(quint64 write)> copied;
        /// A reading has ended.
        std::function<void(quint64 reading, const PasteboardContent &content)> read;
    };

    /// Goes on with what an earlier connection left: a copy of ours is offered again, unless
    /// somebody else's has replaced it.
    SelectionLoop(std::unique_ptr<SelectionConnection> connection, Listener listener,
                  SelectionMemory memory);
    ~SelectionLoop();
    SelectionLoop(const SelectionLoop &) = delete;
    SelectionLoop &operator=(const SelectionLoop &) = delete;

    /// False for a server that has gone, or cannot tell who owns the clipboard.
    [[nodiscard]] bool isAlive() const;
    /// Readable when there is something to do.
    [[nodiscard]] int descriptor() const;
    /// When there is something to do at the latest.
    [[nodiscard]] std::optional<TimePoint> nextDeadline() const;
    void turn();

    /// @param copies how many copies of other programs the reader knows of: a later one is none
    ///     that it asked for.
    void read(quint64 reading, const PasteboardRequest &request, quint64 copies);
    void cancel(quint64 reading);
    /// For a connection that is lost: ends all readings with nothing and tells what to go on with.
    [[nodiscard]] SelectionMemory end();

    /// Replaces the clipboard's contents by ours.
    void offer(SelectionContents contents, quint64 write);
    void empty(quint64 write);

    /// Asks the clipboard manager, where there is one, to keep what is ours. Go on with turn()
    /// until isHandedOver().
    void handOver();
    [[nodiscard]] bool isHandedOver() const { return m_isHandedOver || (!m_offer && !m_claimed); }

private:
    void followClipboard();
    void resume(SelectionMemory memory);
    void handleEvent(const xcb_generic_event_t &event);
    void handleOwner(const xcb_generic_event_t &event);
    void claim(xcb_timestamp_t time);
    void askManager();
    [[nodiscard]] std::optional<PasteboardContent> own(const PasteboardRequest &request) const;

    std::unique_ptr<SelectionConnection> m_connection;
    Listener m_listener;
    SelectionTransfers m_transfers{*m_connection};
    SelectionSending m_sending{*m_connection};
    CopyFilter m_filter{*m_connection};
    std::map<quint64, std::unique_ptr<SelectionReading>> m_readings;
    xcb_window_t m_window = XCB_WINDOW_NONE;
    int m_ownerEvent = 0; ///< 0 when the server does not tell
    quint64 m_copies = 0; ///< of other programs, so far
    quint64 m_write = 0;  ///< the last of ours that took effect
    quint64 m_claimedWrite = 0;
    std::optional<SelectionContents> m_claimed; ///< ours once the server tells the time
    std::optional<SelectionOffer> m_offer;
    bool m_isEnding = false;
    bool m_isHandedOver = false;
};

} // namespace perchly
