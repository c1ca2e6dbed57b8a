#include "SelectionWatch.h"

#include <xcb/xfixes.h>

namespace perchly {

SelectionWatch::SelectionWatch(XcbConnection &connection, const QByteArray &name)
    : m_selection(connection.atom(name)) {
    connect(&connection, &XcbConnection::eventArrived, this, &SelectionWatch::handleEvent);
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
    m_owner = owner ? owner->owner : xcb_window_t{XCB_WINDOW_NONE};
}

void SelectionWatch::handleEvent(const xcb_generic_event_t *event) {
    const auto *notice = reinterpret_cast<const xcb_xfixes_selection_notify_event_t *>(event);
    if (m_firstEvent != 0 &&
        (event->response_type & 0x7f) == m_firstEvent + XCB_XFIXES_SELECTION_NOTIFY &&
        notice->selection == m_selection && notice->owner != m_owner) {
        m_owner = notice->owner;
        Q_EMIT changed();
    }
}

} // namespace perchly
