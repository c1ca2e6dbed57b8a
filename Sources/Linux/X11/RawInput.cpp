#include "RawInput.h"

#include <xcb/xinput.h>

namespace perchly {

RawInput::RawInput(XcbConnection &connection)
    : m_connection(connection) {
    const auto *extension = xcb_get_extension_data(connection.get(), &xcb_input_id);
    // Before version 2.1, raw events stop while another program grabs the pointer.
    if (extension && extension->present &&
        connection.reply<xcb_input_xi_query_version_reply_t>(
            xcb_input_xi_query_version(connection.get(), 2, 2))) {
        m_opcode = extension->major_opcode;
    }
}

void RawInput::select(quint32 mask) const {
    if (!isAvailable()) {
        return;
    }
    struct {
        xcb_input_event_mask_t head{XCB_INPUT_DEVICE_ALL_MASTER, 1};
        quint32 mask = 0;
    } selection{.mask = mask};
    xcb_input_xi_select_events(m_connection.get(), m_connection.root(), 1, &selection.head);
    xcb_flush(m_connection.get());
}

bool RawInput::isOfType(const xcb_generic_event_t *event, quint16 type) const {
    const auto *generic = reinterpret_cast<const xcb_ge_generic_event_t *>(event);
    return isAvailable() && (event->response_type & 0x7f) == XCB_GE_GENERIC &&
           generic->extension == m_opcode && generic->event_type == type;
}

} // namespace perchly
