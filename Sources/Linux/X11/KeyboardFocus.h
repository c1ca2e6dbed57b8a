#pragma once

#include "XcbConnection.h"

#include <QObject>
#include <QTimer>

namespace perchly {

/// Moves the X input focus between windows, by the window manager where there is one: to a window
/// of ours, and back to the window that had it. Main thread only.
class KeyboardFocus : public QObject {
    Q_OBJECT
public:
    explicit KeyboardFocus(XcbConnection &connection, QObject *parent = nullptr);

    /// The window with the focus; XCB_WINDOW_NONE if nobody has it or the server does not answer.
    [[nodiscard]] xcb_window_t current();

    /// Gives a window that no window manager manages the focus, and remembers who had it. A window
    /// that is only about to appear gets it as soon as it is there.
    void take(xcb_window_t window);

    /// Gives the focus back to the remembered window, unless it went elsewhere meanwhile.
    void giveBack(xcb_window_t from);

    /// The person pressed a button outside the window that holds the focus. The window manager
    /// moves the focus then, unless the press went to the window that it believes has it already:
    /// that one gets it back here.
    void pressedOutside(xcb_window_t holder);

    /// Takes the focus again that nobody has any more: its owner's window was closed and the window
    /// manager put the focus aside, on the root or on a window of its own beyond the screen. Who is
    /// to get the focus back afterwards stays as it was.
    void retakeFromNobody(xcb_window_t window);

    /// Makes an ordinary window the active one, whatever the window manager thinks of programs that
    /// take the focus unasked. The window is to have been shown by the toolkit already.
    void activate(xcb_window_t window);

private:
    struct Holder {
        xcb_window_t active = XCB_WINDOW_NONE; ///< as the window manager sees it
        xcb_window_t focus = XCB_WINDOW_NONE;  ///< as the X server sees it
    };

    [[nodiscard]] bool hasWindowManager();
    [[nodiscard]] xcb_window_t activeWindow();
    [[nodiscard]] bool isViewable(xcb_window_t window);
    [[nodiscard]] bool isNobody(xcb_window_t holder);
    bool setFocus(xcb_window_t window);
    void askWindowManager(xcb_window_t window);
    void restoreDirectly();
    void startTrying();
    void tryAgain();

    XcbConnection &m_connection;
    Holder m_before;
    xcb_window_t m_wanted =
        XCB_WINDOW_NONE; ///< gets the focus once it is viewable; none when one is to be given back
    int m_triesLeft = 0;
    QTimer m_retry;
    xcb_window_t m_leaving = XCB_WINDOW_NONE; ///< what the window manager was asked to leave
    QTimer m_leave;
};

} // namespace perchly
