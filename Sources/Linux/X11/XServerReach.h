#pragma once

#include <QByteArray>

#include <chrono>

struct xcb_connection_t;

namespace perchly {

/// Whether the X server named by DISPLAY (or the given name) answers and lets us in. May be called
/// before there is an application object, from any thread, and takes no longer than the patience.
[[nodiscard]] bool
canReachXServer(const QByteArray &displayName = {},
                std::chrono::milliseconds patience = std::chrono::milliseconds(2000));

/// A new connection, which the caller closes with xcb_disconnect(); null when the server refuses it
/// or does not answer in time. A server that never answers leaves one sleeping thread behind.
[[nodiscard]] xcb_connection_t *connectToXServer(const QByteArray &displayName, int *screenNumber,
                                                 std::chrono::milliseconds patience);

} // namespace perchly
