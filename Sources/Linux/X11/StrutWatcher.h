#pragma once

#include "Strut.h"
#include "XcbConnection.h"

#include <QTimer>

namespace perchly {

/// The struts of all windows along the screen's edges. Empty without a window manager, which
/// maintains the list of windows. Main thread only.
class StrutWatcher : public QObject {
    Q_OBJECT
public:
    StrutWatcher();

    [[nodiscard]] const QList<Strut> &struts() const { return m_struts; }
    [[nodiscard]] QSize xScreenSize() const { return m_xScreenSize; }

Q_SIGNALS:
    void changed();

private:
    void handleEvent(const xcb_generic_event_t *event);
    void refresh();

    XcbConnection m_connection;
    xcb_atom_t m_clientList = m_connection.atom("_NET_CLIENT_LIST");
    xcb_atom_t m_strut = m_connection.atom("_NET_WM_STRUT");
    xcb_atom_t m_strutPartial = m_connection.atom("_NET_WM_STRUT_PARTIAL");
    QList<Strut> m_struts;
    QSize m_xScreenSize;
    QTimer m_refresh;
};

} // namespace perchly
