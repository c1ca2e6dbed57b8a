#pragma once

#include <QDBusConnection>

#include <chrono>
#include <optional>

namespace perchly::sessionbus {

/// The person's session bus, or nothing when there is none or it does not answer in time. The first
/// call connects, which takes about a millisecond with a bus that answers. Main thread only.
[[nodiscard]] std::optional<QDBusConnection> within(std::chrono::milliseconds limit);

} // namespace perchly::sessionbus
