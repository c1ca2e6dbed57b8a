#pragma once

#include <QByteArray>
#include <QString>

namespace perchly {

/// The name of the desktop entry in whose unit the desktop runs a process, by its control groups
/// and our own, as /proc/PID/cgroup tells them. Empty when it is in no such unit, or in ours: what
/// we launch stays there, and is another program. Any thread.
[[nodiscard]] QString desktopUnitName(const QByteArray &groups, const QByteArray &ownGroups);

} // namespace perchly
