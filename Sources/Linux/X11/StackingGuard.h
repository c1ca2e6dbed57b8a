#pragma once

#include "XcbConnection.h"

#include <QDeadlineTimer>
#include <QObject>
#include <QRect>
#include <QTimer>

namespace perchly {

/// Notices when another window came to lie over a window that is to stay above, and asks for it to
/// be raised. It leaves alone what belongs there: our own menus and tooltips, other programs' menus
/// and tooltips, and unmanaged windows that fill a display, which lock the screen. Two programs
/// that both want to be above do not fight: after a few requests it pauses. Main thread only.
class StackingGuard : public QObject {
    Q_OBJECT
public:
    explicit StackingGuard(XcbConnection &connection, QObject *parent = nullptr);

    /// The window to watch from now on. It may be announced before the server made it.
    void watch(xcb_window_t window);

Q_SIGNALS:
    void raiseWanted();

private:
    void begin();
    void handleEvent(const xcb_generic_event_t *event);
    void select();
    void check();
    [[nodiscard]] bool isCovered();
    [[nodiscard]] QList<xcb_window_t> windowsAbove();
    [[nodiscard]] bool mayCover(xcb_window_t window, const QRect &area);
    [[nodiscard]] bool isMenu(xcb_window_t window);

    XcbConnection &m_connection;
    xcb_window_t m_window = XCB_WINDOW_NONE;
    bool m_isSelected = false;
    QList<xcb_atom_t> m_signs; ///< properties of the root that change with the order of windows
    QTimer m_check;
    int m_raises = 0; ///< within the present period
    QDeadlineTimer m_period;
};

} // namespace perchly
