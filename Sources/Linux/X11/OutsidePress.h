#pragma once

#include "RawInput.h"

namespace perchly {

/// Sees pointer buttons being pressed outside one window, whichever program receives the press.
/// Scrolling does not count. Main thread only.
class OutsidePress : public QObject {
    Q_OBJECT
public:
    explicit OutsidePress(XcbConnection &connection);

    /// Starts watching; stops with XCB_WINDOW_NONE.
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
