#include "SessionBus.h"

#include <systemd/sd-bus.h>

#include <future>
#include <memory>
#include <system_error>
#include <thread>

namespace perchly::sessionbus {

bool answers(std::chrono::milliseconds limit) {
    const auto end = std::chrono::steady_clock::now() + limit;
    sd_bus *opened = nullptr;
    if (sd_bus_new(&opened) < 0) {
        return false;
    }
    const std::unique_ptr<sd_bus, decltype(&sd_bus_close_unref)> bus(opened, sd_bus_close_unref);
    const QByteArray address = qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS")
                                   ? qgetenv("DBUS_SESSION_BUS_ADDRESS")
                                   : "unix:path=" + qgetenv("XDG_RUNTIME_DIR") + "/bus";
    if (sd_bus_set_address(bus.get(), address.constData()) < 0 ||
        sd_bus_set_bus_client(bus.get(), 1) < 0 || sd_bus_start(bus.get()) < 0) {
        return false;
    }
    while (true) {
        const int ready = sd_bus_is_ready(bus.get());
        if (ready != 0) {
            return ready > 0;
        }
        const auto left = std::chrono::duration_cast<std::chrono::microseconds>(
            end - std::chrono::steady_clock::now());
        if (left.count() <= 0) {
            return false;
        }
        const int handled = sd_bus_process(bus.get(), nullptr);
        if (handled < 0) {
            return false;
        }
        if (handled == 0) {
            sd_bus_wait(bus.get(), quint64(left.count()));
        }
    }
}

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
