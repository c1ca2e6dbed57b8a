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

/// A new connection to the X server named by DISPLAY (or by the given name); null when there is no
/// such server, when it refuses us or does not answer in time. May be called from any thread and
/// before there is an application object, to find out whether to use X at all: then keep the result
/// until the toolkit has connected, for a server that its last client leaves starts anew. A server
/// that never answers leaves one sleeping thread behind.
[[nodiscard]] XConnectionPointer
connectToXServer(const QByteArray &displayName = {}, int *screenNumber = nullptr,
                 std::chrono::milliseconds patience = std::chrono::milliseconds(2000));

/// How long to wait before connecting again after so many attempts in a row that failed; nothing
/// when it is time to give up.
[[nodiscard]] std::optional<std::chrono::milliseconds> delayOfAttempt(int failures);

} // namespace perchly
