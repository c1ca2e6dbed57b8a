#pragma once

#include <QByteArray>
#include <QObject>

#include <memory>

struct wl_keyboard;
struct wl_pointer;
struct wl_seat;
struct xdg_activation_v1;

namespace perchly {

class WaylandConnection;

/// Gets tokens from the compositor that let another program activate its window, since the user has
/// just pressed a button or key in ours. Main thread, but for request().
class ActivationTokens : public QObject {
    Q_OBJECT
public:
    explicit ActivationTokens(std::shared_ptr<WaylandConnection> connection);
    ~ActivationTokens() override;

    /// Blocks until the compositor answers, 300 ms at most. Empty if it does not, or gives no
    /// tokens. Any thread but the main thread, whose event loop must be running.
    [[nodiscard]] QByteArray request();

private:
    struct Answer;
    struct Listener;

    void ask(const std::shared_ptr<Answer> &answer);

    const std::shared_ptr<WaylandConnection> m_connection;
    xdg_activation_v1 *m_activation; ///< null where the compositor has none
    wl_seat *m_seat;
    wl_pointer *m_pointer = nullptr;
    wl_keyboard *m_keyboard = nullptr;
    quint32 m_serial = 0; ///< of the last press; 0 before the first
};

} // namespace perchly
