#pragma once

#include "AudioSystem.h"

#include <QByteArray>
#include <QStringList>

#include <cstdint>
#include <optional>

namespace perchly {

/// The installed application that a process belongs to: by the desktop entry that it was launched
/// from, by its systemd unit, or by the first name that fits; by the names alone without a PID.
/// Null if menus show no such application. An entry outside the data folders is ignored. Reads
/// files, so it may block. Any thread.
[[nodiscard]] std::optional<RunningApplication>
findRunningApplication(std::optional<std::int32_t> pid, const QStringList &names);

/// The name of the desktop entry in the systemd unit of a process, by its and our own
/// /proc/PID/cgroup. Empty when it is in no such unit, or in ours: programs that we start stay
/// there. Any thread.
[[nodiscard]] QString desktopUnitName(const QByteArray &groups, const QByteArray &ownGroups);

} // namespace perchly
