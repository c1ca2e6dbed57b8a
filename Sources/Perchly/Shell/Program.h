#pragma once

#include <QStringList>

namespace perchly {

class BackgroundStart;

/// Runs the program until it quits and returns its exit status. If it was started in the
/// background, it then performs the command; if another instance turns out to run, sends it the
/// command.
using ProgramRun = int(int &argc, char **argv, const QStringList &command,
                       BackgroundStart &background);

/// The name of that function in the module, which takes 15 ms to load.
inline constexpr const char *programRunName = "perchlyRun";

} // namespace perchly
