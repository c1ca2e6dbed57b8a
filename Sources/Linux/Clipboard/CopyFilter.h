#pragma once

#include "Pasteboard.h"

#include <QSet>
#include <xcb/xfixes.h>

#include <optional>

namespace perchly {

class SelectionConnection;

/// Decides which copies stay out of the history. When a program exits or empties the clipboard, a
/// clipboard manager may offer the same content again, perhaps encoded differently and without its
/// markers. A change of owner counts as such a take-over if at least two of these hold:
///  - the previous owner, another client, released the clipboard less than two seconds before;
///  - the new owner is the client that owns CLIPBOARD_MANAGER;
///  - the content is the same: equal text (the paths, for files) or an image with equal pixels.
/// A user who copies the same content in another program takes the clipboard from its owner, or
/// later, so that copy is recorded. The take-over of a copy that was not read completely, as
/// from a program that exits at once, is recorded. Content that was marked once stays out for the
/// rest of the run, with markers or without. Keeps digests only, in memory. Not for the main
/// thread.
class CopyFilter {
public:
    explicit CopyFilter(const SelectionConnection &connection)
        : m_connection(connection) {}

    /// Follows each change of the clipboard's owner.
    void handleOwner(const xcb_xfixes_selection_notify_event_t &change);

    /// Remembers the present copy and removes image and text if it stays out. Ignores requests
    /// without unwanted types and readings that were given up.
    void apply(const PasteboardRequest &request, PasteboardContent &content);

private:
    [[nodiscard]] bool isTakeOver() const;
    [[nodiscard]] bool isSameClient(xcb_window_t one, xcb_window_t other) const;

    const SelectionConnection &m_connection;
    xcb_window_t m_owner = XCB_WINDOW_NONE;    ///< or the one that emptied the clipboard
    std::optional<xcb_timestamp_t> m_released; ///< while there is no owner
    bool m_wasJustReleased = false;            ///< before the present copy
    std::optional<QByteArray> m_previous;      ///< digests, if the copies were read
    std::optional<QByteArray> m_present;
    QSet<QByteArray> m_marked;
};

} // namespace perchly
