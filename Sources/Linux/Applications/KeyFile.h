#pragma once

#include "GioOwned.h"

#include <QString>

namespace perchly {

/// A file of groups of keys, such as a desktop entry or an icon theme's index.
using KeyFile = gio::Owned<GKeyFile>;

/// Null unless the path is a readable regular file. Blocks. Any thread.
[[nodiscard]] KeyFile readKeyFile(const QString &path);

/// A value in the user's language, or empty.
[[nodiscard]] QString keyFileText(const KeyFile &file, const QByteArray &group, const char *key);

/// A value in the main group of a desktop entry, or empty.
[[nodiscard]] QString desktopEntryText(const QString &path, const char *key);

} // namespace perchly
