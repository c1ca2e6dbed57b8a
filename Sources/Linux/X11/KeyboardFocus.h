#pragma once

#include "XcbConnection.h"
#include "XWaylandPointerMonitor.h"

#include <QTimer>

namespace perchly {

/// Moves the X input focus to one of our windows and back to the previous one, through the window
/// manager if there is one. Main thread only.
class KeyboardFocus : public QObject {
    Q_OBJECT
public:
    explicit KeyboardFocus(XcbConnection &connection);

    /// The window with the focus; XCB_WINDOW_NONE if none has it or the server does not answer.
    [[nodiscard]] xcb_window_t current();

    /// Whether keys go to that window: it has the focus, and under XWayland the compositor agrees.
    [[nodiscard]] bool isAt(xcb_window_t window);

    /// Gives the focus to a shown unmanaged window and remembers the window that had it.
    void take(xcb_window_t window);

    /// Gives the focus back to the remembered window, unless `from` has lost it meanwhile.
    void giveBack(xcb_window_t from);

    /// The user pressed a button outside `holder`, which has the focus. The window manager then
    /// moves the focus, unless it believes that the pressed window already has it; in that case
    /// this gives the focus back to that window.
    void pressedOutside(xcb_window_t holder);

    /// Takes the focus again if it was lost because the window that had it was closed and the
    /// window manager parked it on the root or on its own window outside the screen. giveBack()
    /// still gives it to the window remembered before. Does nothing under XWayland, where a window
    /// of Wayland may have it.
    void retakeFromNobody(xcb_window_t window);

    /// Makes an ordinary window active, even if the window manager prevents programs from stealing
    /// the focus. Qt must have shown the window already.
    void activate(xcb_window_t window);

private:
    struct Holder {
        xcb_window_t active = XCB_WINDOW_NONE; ///< as the window manager sees it
        xcb_window_t focus = XCB_WINDOW_NONE;  ///< as the X server sees it
    };

    [[nodiscard]] xcb_window_t activeWindow();
    [[nodiscard]] bool isViewable(xcb_window_t window);
    [[nodiscard]] bool isNobody(xcb_window_t holder);
    bool setFocus(xcb_window_t window);
    void askWindowManager(xcb_window_t window);
    void restoreDirectly();
    /// Waits for the window manager to move the focus away from `holder`. If it does not, sets the
    /// focus to `wanted`, or gives it back.
    void expectLeaving(xcb_window_t holder, xcb_window_t wanted);

    XcbConnection &m_connection;
    const bool m_isXWayland = isXWayland();
    Holder m_before;
    xcb_window_t m_wanted = XCB_WINDOW_NONE;  ///< none if the focus is to be given back
    xcb_window_t m_leaving = XCB_WINDOW_NONE; ///< the window that should lose the focus
    QTimer m_leave;
};

} // namespace perchly
