#pragma once

#include "XcbConnection.h"

#include <QDeadlineTimer>
#include <QTimer>

class QWindow;

namespace perchly {

/// Grabs pointer and keyboard of the X server for a window, which must outlive it. Reports when the
/// screen saver starts, since the screen cannot lock meanwhile.
class InputGrab : public QObject {
    Q_OBJECT
public:
    explicit InputGrab(QWindow &window);

Q_SIGNALS:
    /// Another program holds the keyboard and does not release it in time.
    void failed();
    void screenSaverStarted();

private:
    void grab();
    void watchScreenSaver();

    QWindow &m_window;
    QDeadlineTimer m_deadline;
    QTimer m_retry;
    XcbConnection m_connection;
};

} // namespace perchly
