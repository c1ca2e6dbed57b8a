#pragma once

#include "XcbConnection.h"

#include <QDeadlineTimer>
#include <QRect>
#include <QTimer>

namespace perchly {

/// Raises a window that should stay on top when another one covers it. Menus, tooltips and
/// notifications may cover it, and so may unmanaged windows that fill a display, as they lock the
/// screen. If another program keeps raising its window, too, the guard pauses after a few raises
/// until the watched window moves or grows. Main thread only.
class StackingGuard : public QObject {
    Q_OBJECT
public:
    explicit StackingGuard(XcbConnection &connection);

    /// Sets the window to watch, which the server may not know yet.
    void watch(xcb_window_t window);

    /// Raises it now, above all windows that may not cover it there, or lowers it below a
    /// notification that it has not covered so far. The area is in pixels.
    void raise(const QRect &area);

private:
    enum class From { Bottom, Window };
    enum class Cover { None, Unwanted, Allowed, Lock };
    struct Above {
        bool isCovered = false;                 ///< by a window that may not
        xcb_window_t ceiling = XCB_WINDOW_NONE; ///< the window below which to put ours, if any
    };

    void handleEvent(const xcb_generic_event_t *event);
    void handleMove(const xcb_configure_notify_event_t &event);
    void scheduleCheck();
    void check();
    void raiseBelow(xcb_window_t ceiling);
    [[nodiscard]] Above windowsAbove(const QRect &area, From from);
    [[nodiscard]] Cover coverBy(xcb_window_t window, const QRect &area);
    [[nodiscard]] bool mayCover(xcb_window_t window);

    XcbConnection &m_connection;
    xcb_window_t m_window = XCB_WINDOW_NONE;
    QRect m_area;              ///< the window's area, in the root's pixels
    QList<xcb_atom_t> m_signs; ///< root properties that change with the order of windows
    QTimer m_check;
    int m_raises = 0; ///< in the current period
    QDeadlineTimer m_period;
};

} // namespace perchly
