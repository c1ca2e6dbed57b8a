#pragma once

#include "RawInput.h"

namespace perchly {

/// Reports button presses outside one window, whichever program receives them. Ignores scrolling.
/// Main thread only.
class OutsidePress : public QObject {
    Q_OBJECT
public:
    explicit OutsidePress(XcbConnection &connection);

    /// Starts watching; XCB_WINDOW_NONE stops it.
    void watch(xcb_window_t window);

Q_SIGNALS:
    void pressed();

private:
    void handleEvent(const xcb_generic_event_t *event);
    [[nodiscard]] bool isPointerInside();

    XcbConnection &m_connection;
    RawInput m_input;
    xcb_window_t m_window = XCB_WINDOW_NONE;
};

} // namespace perchly
