#pragma once

#include "XcbConnection.h"

namespace perchly {

/// Raw events of all pointing devices (XInput 2). Unlike ordinary events they also arrive while
/// another program grabs the pointer. Main thread only.
class RawInput {
public:
    explicit RawInput(XcbConnection &connection);

    /// False if the server has no XInput 2.
    [[nodiscard]] bool isAvailable() const { return m_opcode != 0; }

    /// Selects events by XCB_INPUT_XI_EVENT_MASK_…; 0 for none.
    void select(quint32 mask) const;

    /// Whether it is a raw event of that type (XCB_INPUT_RAW_…).
    [[nodiscard]] bool isOfType(const xcb_generic_event_t *event, quint16 type) const;

private:
    XcbConnection &m_connection;
    quint8 m_opcode = 0;
};

} // namespace perchly
