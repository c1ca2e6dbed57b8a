#include "CompositorWatch.h"

#include <xcb/xfixes.h>

namespace perchly {

CompositorWatch::CompositorWatch(XcbConnection &connection, QObject *parent)
    : QObject(parent)
    , m_connection(connection) {
    connect(&connection, &XcbConnection::eventArrived, this, &CompositorWatch::handleEvent);
    connect(&connection, &XcbConnection::restored, this, &CompositorWatch::begin);
    begin();
}

void CompositorWatch::begin() {
    if (!m_connection.isAlive()) {
        return;
    }
    m_selection =
        m_connection.atom("_NET_WM_CM_S" + QByteArray::number(m_connection.screenNumber()));
    const auto *extension = xcb_get_extension_data(m_connection.get(), &xcb_xfixes_id);
    if (extension && extension->present &&
        m_connection.reply<xcb_xfixes_query_version_reply_t>(
            xcb_xfixes_query_version(m_connection.get(), 4, 0))) {
        m_firstEvent = extension->first_event;
        xcb_xfixes_select_selection_input(
            m_connection.get(), m_connection.root(), m_selection,
            XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER |
                XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
                XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
    }
    const auto owner = m_connection.reply<xcb_get_selection_owner_reply_t>(
        xcb_get_selection_owner(m_connection.get(), m_selection));
    if (owner) {
        setRunning(owner->owner != XCB_WINDOW_NONE);
    }
}

void CompositorWatch::handleEvent(const xcb_generic_event_t *event) {
    if (m_firstEvent == 0 ||
        (event->response_type & 0x7f) != m_firstEvent + XCB_XFIXES_SELECTION_NOTIFY) {
        return;
    }
    const auto *notice = reinterpret_cast<const xcb_xfixes_selection_notify_event_t *>(event);
    if (notice->selection == m_selection) {
        setRunning(notice->owner != XCB_WINDOW_NONE);
    }
}

void CompositorWatch::setRunning(bool isRunning) {
    if (isRunning == m_isRunning) {
        return;
    }
    m_isRunning = isRunning;
    Q_EMIT changed();
}

} // namespace perchly
