#include "SessionBus.h"

#include <systemd/sd-bus.h>

#include <memory>

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
    // The library's own connecting waits without a limit, so only a bus that answers is left to it.
    if (!answers(limit)) {
        return std::nullopt;
    }
    const QDBusConnection bus = QDBusConnection::sessionBus();
    return bus.isConnected() ? std::optional(bus) : std::nullopt;
}

} // namespace perchly::sessionbus
