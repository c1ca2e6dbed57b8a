#include "SessionBus.h"

#include <future>
#include <system_error>
#include <thread>

namespace perchly::sessionbus {

std::optional<QDBusConnection> within(std::chrono::milliseconds limit) {
    // Connecting waits for the bus without a limit of its own, so somebody else does the waiting.
    std::promise<bool> connected;
    std::future<bool> answer = connected.get_future();
    try {
        std::thread([connected = std::move(connected)]() mutable {
            connected.set_value(QDBusConnection::sessionBus().isConnected());
        }).detach();
    } catch (const std::system_error &) {
        return std::nullopt;
    }
    if (answer.wait_for(limit) != std::future_status::ready || !answer.get()) {
        return std::nullopt;
    }
    return QDBusConnection::sessionBus();
}

} // namespace perchly::sessionbus
