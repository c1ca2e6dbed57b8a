#pragma once

#include <QObject>
#include <QPoint>

#include <chrono>

class QSocketNotifier;
struct xcb_connection_t;

namespace perchly {

/// Takes the pointer and the keyboard for this program alone, as long as it exists, and tells what
/// the person does with them, in the pixels of the X server. Main thread only.
class PointerGrab : public QObject {
    Q_OBJECT
public:
    /// On an open connection of its own, which must outlive the grab.
    explicit PointerGrab(xcb_connection_t *connection);
    ~PointerGrab() override;

    /// Tries again while another program holds one of them, a menu for example; false if it has
    /// not let go in time. Blocks.
    [[nodiscard]] bool take(std::chrono::milliseconds patience);

    [[nodiscard]] QPoint position() const { return m_position; }

Q_SIGNALS:
    void pressed(const QPoint &pixel);
    void moved(const QPoint &pixel);
    void released(const QPoint &pixel);
    /// Escape, or another button than the first.
    void cancelled();
    /// The server has gone.
    void lost();

private:
    [[nodiscard]] bool tryToTake();
    void readEvents();
    void handleKey(unsigned char keycode);

    xcb_connection_t *m_connection;
    QSocketNotifier *m_notifier = nullptr;
    QPoint m_position;
};

} // namespace perchly
