#pragma once

#include "AudioSystem.h"

#include <QByteArray>
#include <QStringList>

#include <cstdint>
#include <optional>

namespace perchly {

/// The installed application that a process belongs to: by the desktop entry that launched it, by
/// its systemd unit, or by the first name that fits; without a PID, only by the names. Null if
/// menus do not show the application. Ignores entries outside the data folders. Reads files, so it
/// may block. Any thread.
[[nodiscard]] std::optional<RunningApplication>
findRunningApplication(std::optional<std::int32_t> pid, const QStringList &names);

/// The name of the desktop entry in the systemd unit of a process, from its and our own
/// /proc/PID/cgroup. Empty if it is in no such unit, or in ours, where programs that we start stay.
/// Any thread.
[[nodiscard]] QString desktopUnitName(const QByteArray &groups, const QByteArray &ownGroups);

} // namespace perchly
