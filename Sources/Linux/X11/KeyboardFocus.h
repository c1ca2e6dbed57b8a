#pragma once

#include "XcbConnection.h"

#include <QTimer>

namespace perchly {

/// Moves the X input focus to a window of ours and back to the window that had it, through the
/// window manager if there is one. Main thread only.
class KeyboardFocus : public QObject {
    Q_OBJECT
public:
    explicit KeyboardFocus(XcbConnection &connection);

    /// The window with the focus; XCB_WINDOW_NONE without a focus or if the server does not answer.
    [[nodiscard]] xcb_window_t current();

    /// Gives the focus to an unmanaged window that is shown, and remembers who had it.
    void take(xcb_window_t window);

    /// Gives the focus back to the remembered window, unless it has gone elsewhere meanwhile.
    void giveBack(xcb_window_t from);

    /// The user pressed a button outside the window with the focus. The window manager then moves
    /// the focus, unless it believes that the pressed window has it already: that one gets it back
    /// here.
    void pressedOutside(xcb_window_t holder);

    /// Takes the focus again if it was lost: the window that had it was closed, and the
    /// window manager parked it on the root or on a window of its own outside the screen. Who gets
    /// it back afterwards does not change.
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
    /// Waits for the window manager to move the focus away from `holder`; if it does not, gives it
    /// to `wanted`, or back.
    void expectLeaving(xcb_window_t holder, xcb_window_t wanted);

    XcbConnection &m_connection;
    Holder m_before;
    xcb_window_t m_wanted = XCB_WINDOW_NONE;  ///< none when the focus is to be given back
    xcb_window_t m_leaving = XCB_WINDOW_NONE; ///< the window manager should take the focus from it
    QTimer m_leave;
};

} // namespace perchly
