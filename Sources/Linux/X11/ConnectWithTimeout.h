#pragma once

#include <chrono>
#include <memory>
#include <xcb/xcb.h>

namespace perchly {

struct CloseXConnection {
    void operator()(xcb_connection_t *connection) const { xcb_disconnect(connection); }
};
using XConnectionPointer = std::unique_ptr<xcb_connection_t, CloseXConnection>;

/// A new connection to the X server in DISPLAY; null if the server is missing, refuses, or does not
/// answer in time. Any thread, also before there is an application object. A server that never
/// answers leaves one sleeping thread behind.
[[nodiscard]] XConnectionPointer
connectWithTimeout(std::chrono::milliseconds timeout = std::chrono::milliseconds(2000));

} // namespace perchly
