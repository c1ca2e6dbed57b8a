#pragma once

#include "Strut.h"
#include "XcbConnection.h"

#include <QHash>
#include <QObject>
#include <QSet>
#include <QTimer>

namespace perchly {

/// Keeps what the windows of the desktop reserve along the screen's edges. Empty without a window
/// manager, which alone says what windows there are. Main thread only.
class StrutWatcher : public QObject {
    Q_OBJECT
public:
    explicit StrutWatcher(QObject *parent = nullptr);

    [[nodiscard]] QList<Strut> struts() const { return m_struts.values(); }
    [[nodiscard]] QSize xScreenSize() const { return m_xScreenSize; }

Q_SIGNALS:
    void changed();

private:
    void begin();
    void handleEvent(const xcb_generic_event_t *event);
    void refreshSoon();
    void refresh();
    void readStruts(const QList<xcb_window_t> &windows);
    void watchPropertiesOf(xcb_window_t window);

    XcbConnection m_connection;
    xcb_atom_t m_clientList = XCB_ATOM_NONE;
    xcb_atom_t m_strut = XCB_ATOM_NONE;
    xcb_atom_t m_strutPartial = XCB_ATOM_NONE;
    QSet<xcb_window_t> m_clients;
    QSet<xcb_window_t> m_outdated; ///< clients whose struts are to be read again
    QHash<xcb_window_t, Strut> m_struts;
    QSize m_xScreenSize;
    QTimer m_refresh;
};

} // namespace perchly
