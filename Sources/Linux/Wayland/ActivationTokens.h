#pragma once

#include <QByteArray>

#include <functional>
#include <memory>

struct wl_keyboard;
struct wl_pointer;
struct wl_seat;
struct xdg_activation_v1;

namespace perchly {

class WaylandConnection;

/// Gets tokens from the compositor that let another program activate its window, since the user has
/// just pressed a button or key in ours. Main thread only.
class ActivationTokens {
public:
    explicit ActivationTokens(std::shared_ptr<WaylandConnection> connection);
    ~ActivationTokens();
    ActivationTokens(const ActivationTokens &) = delete;
    ActivationTokens &operator=(const ActivationTokens &) = delete;

    /// Asks for a token. The function blocks until the compositor has answered, 300 ms at most, and
    /// returns an empty token if it has not, or gives none. Call it on another thread than the main
    /// thread, whose event loop must be running.
    [[nodiscard]] std::function<QByteArray()> ask();

private:
    struct Answer;
    struct Listener;

    const std::shared_ptr<WaylandConnection> m_connection;
    xdg_activation_v1 *m_activation; ///< null where the compositor has none
    wl_seat *m_seat;
    wl_pointer *m_pointer = nullptr;
    wl_keyboard *m_keyboard = nullptr;
    quint32 m_serial = 0; ///< of the last press or release; 0 before the first
};

} // namespace perchly
