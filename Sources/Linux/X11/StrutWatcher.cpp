#include "StrutWatcher.h"

namespace perchly {

namespace {

// A desktop that starts or rearranges itself changes these many times in a row.
constexpr std::chrono::milliseconds strutSettleTime{30};

} // namespace

StrutWatcher::StrutWatcher(QObject *parent)
    : QObject(parent) {
    m_refresh.setSingleShot(true);
    m_refresh.setInterval(strutSettleTime);
    connect(&m_refresh, &QTimer::timeout, this, &StrutWatcher::refresh);
    connect(&m_connection, &XcbConnection::eventArrived, this, &StrutWatcher::handleEvent);
    connect(&m_connection, &XcbConnection::restored, this, &StrutWatcher::begin);
    begin();
}

void StrutWatcher::begin() {
    if (!m_connection.isAlive()) {
        return;
    }
    m_clients.clear();
    m_clientList = m_connection.atom("_NET_CLIENT_LIST");
    m_strut = m_connection.atom("_NET_WM_STRUT");
    m_strutPartial = m_connection.atom("_NET_WM_STRUT_PARTIAL");
    const quint32 mask = XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(m_connection.get(), m_connection.root(), XCB_CW_EVENT_MASK, &mask);
    refresh();
}

void StrutWatcher::handleEvent(const xcb_generic_event_t *event) {
    switch (event->response_type & 0x7f) {
    case XCB_PROPERTY_NOTIFY: {
        const auto *notice = reinterpret_cast<const xcb_property_notify_event_t *>(event);
        if (notice->window == m_connection.root() && notice->atom == m_clientList) {
            refreshSoon();
        } else if (notice->atom == m_strut || notice->atom == m_strutPartial) {
            m_outdated.insert(notice->window);
            refreshSoon();
        }
        break;
    }
    case XCB_CONFIGURE_NOTIFY:
        refreshSoon();
        break;
    default:
        break;
    }
}

void StrutWatcher::refreshSoon() {
    if (!m_refresh.isActive()) {
        m_refresh.start();
    }
}

void StrutWatcher::refresh() {
    const QHash<xcb_window_t, Strut> oldStruts = m_struts;
    const QSize oldSize = m_xScreenSize;

    if (!m_connection.isAlive()) {
        return;
    }
    const auto geometry = xcb_get_geometry(m_connection.get(), m_connection.root());
    const QList<quint32> list = m_connection.property(m_connection.root(), m_clientList);
    const auto answer = m_connection.reply<xcb_get_geometry_reply_t>(geometry);
    if (m_connection.isBehind()) {
        return; // what is known stands until all is read anew
    }
    if (answer) {
        m_xScreenSize = QSize(answer->width, answer->height);
    }

    const QSet<xcb_window_t> clients(list.begin(), list.end());
    for (const xcb_window_t window : clients - m_clients) {
        watchPropertiesOf(window);
        m_outdated.insert(window);
    }
    m_clients = clients;
    m_struts.removeIf([&](auto entry) { return !clients.contains(entry.key()); });
    readStruts((m_outdated & clients).values());
    m_outdated.clear();

    if (m_struts != oldStruts || m_xScreenSize != oldSize) {
        Q_EMIT changed();
    }
}

void StrutWatcher::readStruts(const QList<xcb_window_t> &windows) {
    QList<std::pair<xcb_get_property_cookie_t, xcb_get_property_cookie_t>> requests;
    requests.reserve(windows.size());
    for (const xcb_window_t window : windows) {
        requests.append({m_connection.requestProperty(window, m_strutPartial),
                         m_connection.requestProperty(window, m_strut)});
    }
    for (qsizetype i = 0; i < windows.size(); ++i) {
        const QList<quint32> partial = m_connection.property(requests[i].first);
        const QList<quint32> whole = m_connection.property(requests[i].second);
        const Strut strut = Strut::fromProperties(partial, whole);
        if (!strut.isEmpty()) {
            m_struts.insert(windows[i], strut);
        } else if (!m_connection.isBehind()) {
            m_struts.remove(windows[i]);
        }
    }
}

void StrutWatcher::watchPropertiesOf(xcb_window_t window) {
    const quint32 mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(m_connection.get(), window, XCB_CW_EVENT_MASK, &mask);
}

} // namespace perchly
