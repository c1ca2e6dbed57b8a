#pragma once

#include <QByteArray>

/// Startup notification: tells window managers and panels that a program is being started. Each
/// call makes its own connection to the X server and waits for it. Any thread but the main one.
namespace perchly::startupsequence {

/// Announces a program by its display name, in UTF-8. Returns the identifier to start it with,
/// which carries the time of the request; empty without an X server.
[[nodiscard]] QByteArray begin(const QByteArray &name);

/// The program did not start.
void withdraw(const QByteArray &identifier);

} // namespace perchly::startupsequence
