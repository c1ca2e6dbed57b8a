#include "CompositorWatch.h"

#include <xcb/xfixes.h>

namespace perchly {

CompositorWatch::CompositorWatch(XcbConnection &connection)
    : m_selection(connection.atom("_NET_WM_CM_S0")) {
    connect(&connection, &XcbConnection::eventArrived, this, &CompositorWatch::handleEvent);
    const auto *extension = xcb_get_extension_data(connection.get(), &xcb_xfixes_id);
    if (extension && extension->present) {
        m_firstEvent = extension->first_event;
        xcb_discard_reply(connection.get(),
                          xcb_xfixes_query_version(connection.get(), 4, 0).sequence);
        xcb_xfixes_select_selection_input(
            connection.get(), connection.root(), m_selection,
            XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER |
                XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
                XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
    }
    const auto owner = connection.reply<xcb_get_selection_owner_reply_t>(
        xcb_get_selection_owner(connection.get(), m_selection));
    m_isRunning = owner && owner->owner != XCB_WINDOW_NONE;
}

void CompositorWatch::handleEvent(const xcb_generic_event_t *event) {
    const auto *notice = reinterpret_cast<const xcb_xfixes_selection_notify_event_t *>(event);
    if (m_firstEvent != 0 &&
        (event->response_type & 0x7f) == m_firstEvent + XCB_XFIXES_SELECTION_NOTIFY &&
        notice->selection == m_selection) {
        setRunning(notice->owner != XCB_WINDOW_NONE);
    }
}

void CompositorWatch::setRunning(bool isRunning) {
    if (isRunning != m_isRunning) {
        m_isRunning = isRunning;
        Q_EMIT changed();
    }
}

} // namespace perchly
