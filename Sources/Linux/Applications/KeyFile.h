#pragma once

#include "GioOwned.h"

#include <QString>

namespace perchly {

/// A file of groups of keys, as desktop entries and icon themes are.
using KeyFile = gio::Owned<GKeyFile>;

/// Null unless the path is a regular file that can be read. Blocks. Any thread.
[[nodiscard]] KeyFile readKeyFile(const QString &path);

/// A value in the user's language, or empty.
[[nodiscard]] QString keyFileText(const KeyFile &file, const QByteArray &group, const char *key);

/// A value of the main group of a desktop entry, or empty.
[[nodiscard]] QString desktopEntryText(const QString &path, const char *key);

} // namespace perchly
