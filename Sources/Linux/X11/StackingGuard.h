#pragma once

#include "XcbConnection.h"

#include <QDeadlineTimer>
#include <QObject>
#include <QRect>
#include <QTimer>

namespace perchly {

/// Notices when another window covers a window that should stay on top, and asks for a raise. Some
/// windows may cover it: menus and tooltips, our own or other programs', and unmanaged windows that
/// fill a display, which lock the screen. Two programs that both want to be on top do not fight:
/// after a few requests it pauses, until the watched window moves or grows. Main thread only.
class StackingGuard : public QObject {
    Q_OBJECT
public:
    explicit StackingGuard(XcbConnection &connection, QObject *parent = nullptr);

    /// The window to watch from now on. It may be announced before the server made it.
    void watch(xcb_window_t window);

Q_SIGNALS:
    void raiseWanted();

private:
    enum class Cover { None, Unwanted, Allowed };

    void begin();
    void handleEvent(const xcb_generic_event_t *event);
    void handleMove(const xcb_configure_notify_event_t &event);
    void scheduleCheck();
    void select();
    void check();
    [[nodiscard]] Cover cover();
    [[nodiscard]] QList<xcb_window_t> windowsAbove();
    [[nodiscard]] Cover coverBy(xcb_window_t window);
    [[nodiscard]] bool isMenu(xcb_window_t window);

    XcbConnection &m_connection;
    xcb_window_t m_window = XCB_WINDOW_NONE;
    QRect m_area; ///< of the window, in the root's pixels
    bool m_isSelected = false;
    QList<xcb_atom_t> m_signs; ///< properties of the root that change with the order of windows
    QTimer m_check;
    int m_raises = 0; ///< within the present period
    QDeadlineTimer m_period;
};

} // namespace perchly
