#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <chrono>
#include <optional>

namespace perchly::instancesocket {

// A connection carries one command and its answer, each one line. It works without a session bus.

/// The socket in the user's runtime folder.
[[nodiscard]] QString path();

/// One line of words separated by spaces; the words are percent-encoded.
[[nodiscard]] QByteArray encoded(const QStringList &command);
[[nodiscard]] QStringList decoded(const QByteArray &line);

/// Sends the command to the running instance and waits for its answer, for the timeout at each
/// step. Returns why the command failed, empty if it did not; or nullopt if no instance listens.
/// Any thread, also without an application object.
[[nodiscard]] std::optional<QString> send(const QStringList &command,
                                          std::chrono::milliseconds timeout);

/// Tells that the instance with this process number runs but does not answer.
[[nodiscard]] QString noAnswer(qint64 process);

} // namespace perchly::instancesocket
