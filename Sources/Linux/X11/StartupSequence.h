#pragma once

#include <QByteArray>

/// Startup notification: tells window managers and panels that a program is starting. Each call
/// opens its own connection to the X server and waits for it. Any thread but the main thread.
namespace perchly::startupsequence {

/// Announces a program by its display name, in UTF-8. Returns the identifier to start it with,
/// which contains the time of the request; empty without an X server.
[[nodiscard]] QByteArray begin(const QByteArray &name);

/// Reports that the program did not start.
void withdraw(const QByteArray &identifier);

} // namespace perchly::startupsequence
