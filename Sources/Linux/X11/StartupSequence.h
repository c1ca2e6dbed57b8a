#pragma once

#include <QByteArray>

/// The messages by which window managers and panels of X11 learn that a program is being started.
/// Each call makes a connection of its own and waits for the server a short while at most. Any
/// thread.
namespace perchly::startupsequence {

/// Announces a program by its name for people, in UTF-8. Returns the identifier that it is started
/// with, which carries the time of the request; empty without an X server.
[[nodiscard]] QByteArray begin(const QByteArray &name);

/// The program did not start.
void withdraw(const QByteArray &identifier);

} // namespace perchly::startupsequence
