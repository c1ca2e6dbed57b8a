#pragma once

#include "SelectionImage.h"
#include "SelectionItems.h"
#include "SelectionSending.h"

#include <QList>
#include <QString>

#include <variant>

namespace perchly {

/// What this program copies.
using SelectionContents = std::variant<QString, SelectionImage, SelectionItems>;

/// What of it is text; null if nothing is.
[[nodiscard]] const QString *textOf(const SelectionContents &contents);

/// Our own copy, while it is the clipboard's: answers what other programs ask about it. Not for
/// the main thread.
class SelectionOffer {
public:
    /// @param time when the clipboard became ours, by the server's clock.
    SelectionOffer(const SelectionConnection &connection, SelectionSending &sending,
                   SelectionContents contents, xcb_timestamp_t time);

    void answer(const xcb_selection_request_event_t &request);
    /// Answers for a copy that is ours no more.
    static void refuse(const SelectionConnection &connection,
                       const xcb_selection_request_event_t &request);

    [[nodiscard]] const SelectionContents &contents() const { return m_contents; }
    /// The forms that carry data.
    [[nodiscard]] QList<xcb_atom_t> forms() const;

private:
    [[nodiscard]] bool convert(xcb_window_t window, xcb_atom_t target, xcb_atom_t property);
    [[nodiscard]] bool convertSeveral(xcb_window_t window, xcb_atom_t property);
    [[nodiscard]] QByteArray bytesFor(xcb_atom_t target);
    void set(xcb_window_t window, xcb_atom_t property, xcb_atom_t type,
             const QList<quint32> &values) const;

    const SelectionConnection &m_connection;
    SelectionSending &m_sending;
    SelectionContents m_contents;
    xcb_timestamp_t m_time;
};

} // namespace perchly
