#pragma once

#include <QString>

namespace perchly {

/// Whether this absolute path names a desktop entry in the `applications` folder of a data folder.
/// Any other entry may be a download and must not be executed.
/// Compares paths only: reads no file and follows no link. Any thread.
[[nodiscard]] bool isInApplicationFolders(const QString &path);

} // namespace perchly
