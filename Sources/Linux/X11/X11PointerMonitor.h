#pragma once

#include "PointerMonitor.h"
#include "XcbConnection.h"

#include <QPoint>
#include <QTimer>

namespace perchly {

/// Follows the pointer by the raw motion of the input devices, which arrives whoever holds the
/// pointer. A mouse may report a thousand times a second: after each announcement reports are left
/// lying for a few milliseconds, and the last of a movement is always told.
class X11PointerMonitor : public PointerMonitor {
    Q_OBJECT
public:
    explicit X11PointerMonitor(QObject *parent = nullptr);

    void start() override;
    [[nodiscard]] ScreenPoint position() const override;
    void setPolling(bool on) override;

private:
    void handleEvent(const xcb_generic_event_t *event);
    void announce();
    void lookAgain();
    void poll();
    void updatePolling();
    QPoint queryPosition() const;

    mutable XcbConnection m_connection;
    mutable QPoint m_lastPixels; ///< where the pointer was when last asked for
    quint8 m_inputOpcode = 0;
    bool m_hasMoved = false;  ///< since the last announcement
    bool m_seesMotion = true; ///< else only polling finds movement
    bool m_isPollingWanted = false;
    QTimer m_rest;
    QTimer m_poll;
};

} // namespace perchly
