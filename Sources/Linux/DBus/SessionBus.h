#pragma once

#include <QDBusConnection>

#include <chrono>
#include <optional>

namespace perchly::sessionbus {

/// Whether there is a session bus that lets us in and answers within the limit. Asks over a
/// connection of its own, before anybody waits for the bus without a limit. May be called before
/// there is an application object; about a millisecond with a bus that answers.
[[nodiscard]] bool answers(std::chrono::milliseconds limit);

/// The person's session bus, or nothing when there is none or it does not answer in time. The first
/// call connects, which takes about a millisecond with a bus that answers. Main thread only.
[[nodiscard]] std::optional<QDBusConnection> within(std::chrono::milliseconds limit);

} // namespace perchly::sessionbus
