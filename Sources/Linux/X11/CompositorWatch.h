#pragma once

#include "XcbConnection.h"

#include <QObject>

namespace perchly {

/// Knows whether a compositing manager runs, by the owner of the selection that each of them holds.
/// Main thread only.
class CompositorWatch : public QObject {
    Q_OBJECT
public:
    explicit CompositorWatch(XcbConnection &connection, QObject *parent = nullptr);

    [[nodiscard]] bool isRunning() const { return m_isRunning; }

Q_SIGNALS:
    void changed();

private:
    void begin();
    void handleEvent(const xcb_generic_event_t *event);
    void setRunning(bool isRunning);

    XcbConnection &m_connection;
    xcb_atom_t m_selection = XCB_ATOM_NONE;
    quint8 m_firstEvent = 0;
    bool m_isRunning = false;
};

} // namespace perchly
