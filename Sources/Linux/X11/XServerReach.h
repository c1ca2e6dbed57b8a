#pragma once

#include <QByteArray>

#include <chrono>
#include <memory>
#include <optional>

struct xcb_connection_t;

namespace perchly {

struct CloseXConnection {
    void operator()(xcb_connection_t *connection) const;
};
using XConnectionPointer = std::unique_ptr<xcb_connection_t, CloseXConnection>;

/// A new connection to the X server named by DISPLAY, or by the given name; null if there is no
/// such server, if it refuses the connection or does not answer in time. Any thread, also before
/// there is an application object. A server that never answers leaves one sleeping thread behind.
[[nodiscard]] XConnectionPointer
connectToXServer(const QByteArray &displayName = {}, int *screenNumber = nullptr,
                 std::chrono::milliseconds timeout = std::chrono::milliseconds(2000));

/// How long to wait before connecting again after that many failures in a row; nothing when it is
/// time to give up.
[[nodiscard]] std::optional<std::chrono::milliseconds> delayOfAttempt(int failures);

} // namespace perchly
