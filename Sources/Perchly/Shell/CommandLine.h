#pragma once

#include <QStringList>

#include <optional>

namespace perchly {

/// The arguments of the program.
struct CommandLine {
    QStringList command;       ///< empty without a command
    std::optional<int> status; ///< set if the program should end with it
};

/// Reads the arguments, and prints the help, the version or an error. Files become URLs. Needs
/// no application object.
[[nodiscard]] CommandLine readCommandLine(int argc, char **argv);

} // namespace perchly
