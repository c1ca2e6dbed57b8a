#pragma once

#include "XcbConnection.h"

#include <QObject>

namespace perchly {

/// Sees pointer buttons going down anywhere outside one window, whoever receives them; scrolling is
/// none. Costs nothing while it does not watch. Main thread only.
class OutsidePress : public QObject {
    Q_OBJECT
public:
    explicit OutsidePress(XcbConnection &connection, QObject *parent = nullptr);

    /// Starts or, with XCB_WINDOW_NONE, stops watching.
    void watch(xcb_window_t window);

Q_SIGNALS:
    void pressed();

private:
    void begin();
    void handleEvent(const xcb_generic_event_t *event);
    void select(quint32 events);
    [[nodiscard]] bool isPointerInside();

    XcbConnection &m_connection;
    xcb_window_t m_window = XCB_WINDOW_NONE;
    quint8 m_inputOpcode = 0;
};

} // namespace perchly
