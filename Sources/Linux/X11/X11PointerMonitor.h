#pragma once

#include "PointerMonitor.h"
#include "RawInput.h"

#include <QPoint>
#include <QTimer>

namespace perchly {

/// Follows the pointer by raw motion events. A mouse may send a thousand of them per second, so
/// after each announcement they stay in the socket for a few milliseconds. The last position of a
/// movement is always announced. Without XInput 2 the pointer is polled.
class X11PointerMonitor : public PointerMonitor {
    Q_OBJECT
public:
    X11PointerMonitor();

    void start() override;
    [[nodiscard]] ScreenPoint position() const override;
    [[nodiscard]] bool isButtonHeld() const override;
    void watch(Watch watch) override;

private:
    [[nodiscard]] XcbPointer<xcb_query_pointer_reply_t> query() const;
    void announce();
    void endRest();
    void poll();

    mutable XcbConnection m_connection;
    RawInput m_input{m_connection};
    mutable QPoint m_lastPixels; ///< the last known position
    Watch m_watch = Watch::Nothing;
    mutable bool m_hasMoved = false; ///< since the last announcement, or the server did not answer
    QTimer m_rest;
    QTimer m_poll;
};

} // namespace perchly
