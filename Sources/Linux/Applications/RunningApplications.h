#pragma once

#include "AudioSystem.h"

#include <QStringList>

#include <cstdint>
#include <optional>

namespace perchly {

/// The installed application that the process is: by the desktop entry with which the desktop
/// started it, or by the first of the names that is one's; by the names alone where the system's
/// number of the process is not known. Nothing when it is none, or one that is not shown to people.
/// An entry outside the data folders is ignored. Reads files, so it may block. Any thread.
[[nodiscard]] std::optional<RunningApplication>
findRunningApplication(std::optional<std::int32_t> pid, const QStringList &names);

} // namespace perchly
