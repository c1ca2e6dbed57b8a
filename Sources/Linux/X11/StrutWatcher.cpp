#include "StrutWatcher.h"

namespace perchly {

namespace {

// A desktop that starts or rearranges itself changes struts many times in a row.
constexpr std::chrono::milliseconds strutSettleTime{30};
constexpr std::chrono::milliseconds stallPause{500};

struct StrutRequest {
    xcb_get_property_cookie_t partial;
    xcb_get_property_cookie_t whole;
};

} // namespace

StrutWatcher::StrutWatcher() {
    m_refresh.setSingleShot(true);
    connect(&m_refresh, &QTimer::timeout, this, &StrutWatcher::refresh);
    connect(&m_connection, &XcbConnection::eventArrived, this, &StrutWatcher::handleEvent);
    m_connection.selectEvents(m_connection.root(),
                              XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    refresh();
}

void StrutWatcher::handleEvent(const xcb_generic_event_t *event) {
    const int type = event->response_type & 0x7f;
    const xcb_atom_t atom = reinterpret_cast<const xcb_property_notify_event_t *>(event)->atom;
    const bool isProperty = type == XCB_PROPERTY_NOTIFY &&
                            (atom == m_clientList || atom == m_strut || atom == m_strutPartial);
    if ((isProperty || type == XCB_CONFIGURE_NOTIFY) && !m_refresh.isActive()) {
        m_refresh.start(strutSettleTime);
    }
}

void StrutWatcher::refresh() {
    const QList<quint32> clients = m_connection.property(m_connection.root(), m_clientList);
    QList<StrutRequest> requests;
    for (const xcb_window_t window : clients) {
        m_connection.selectEvents(window, XCB_EVENT_MASK_PROPERTY_CHANGE);
        requests.append({m_connection.requestProperty(window, m_strutPartial),
                         m_connection.requestProperty(window, m_strut)});
    }
    const auto geometryRequest = xcb_get_geometry(m_connection.get(), m_connection.root());
    QList<Strut> struts;
    for (const StrutRequest &request : requests) {
        const QList<quint32> partial = m_connection.property(request.partial);
        const Strut strut = Strut::fromProperties(partial, m_connection.property(request.whole));
        if (!strut.isEmpty()) {
            struts.append(strut);
        }
    }
    // The last reply; the others have arrived before it.
    const auto geometry = m_connection.reply<xcb_get_geometry_reply_t>(geometryRequest);
    if (!geometry) {
        if (m_connection.isAlive()) {
            m_refresh.start(stallPause);
        }
        return;
    }
    const QSize size(geometry->width, geometry->height);
    if (struts != m_struts || size != m_xScreenSize) {
        m_struts = struts;
        m_xScreenSize = size;
        Q_EMIT changed();
    }
}

} // namespace perchly
