#pragma once

#include "XcbConnection.h"

namespace perchly {

/// Reports which window owns a selection, such as a compositor's. Main thread only.
class SelectionWatch : public QObject {
    Q_OBJECT
public:
    SelectionWatch(XcbConnection &connection, const QByteArray &name);

    /// XCB_WINDOW_NONE without an owner.
    [[nodiscard]] xcb_window_t owner() const { return m_owner; }

Q_SIGNALS:
    void changed();

private:
    void handleEvent(const xcb_generic_event_t *event);

    xcb_atom_t m_selection;
    quint8 m_firstEvent = 0;
    xcb_window_t m_owner = XCB_WINDOW_NONE;
};

} // namespace perchly
