#pragma once

#include <QString>
#include <QStringList>

namespace perchly {

/// Commands that reach the program from a shell or over D-Bus: a name such as "workspace", then its
/// arguments. Any thread.
namespace command {

/// Why the command is malformed, for its sender; empty if it is well-formed. Items that only the
/// running program knows, such as the entries of the shelf, are not checked.
[[nodiscard]] QString problem(const QStringList &command);

/// The title of the workspace section with that name in any case; null if no section has it.
[[nodiscard]] QString workspaceSection(const QString &name);

/// Whether the command has nothing to do if the program does not run.
[[nodiscard]] bool onlyEnds(const QStringList &command);

/// Whether the command shows something on a display.
[[nodiscard]] bool needsDisplay(const QStringList &command);

/// The text of `perchly --help`.
[[nodiscard]] QString help();

} // namespace command
} // namespace perchly
