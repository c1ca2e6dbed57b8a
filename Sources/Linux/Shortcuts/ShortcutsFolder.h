#pragma once

#include <QList>
#include <QString>

#include <optional>

/// The folder of the user's shortcuts. Any thread; all functions but path() read or write files.
namespace perchly::shortcutsfolder {

struct Shortcut {
    QString name; ///< in one line
    QString file; ///< absolute path
};

/// The absolute path, whether the folder exists or not.
[[nodiscard]] QString path();

/// The executable files, sorted by name. A name is the file's name without its extension; of files
/// with the same name, only the first counts. Omits hidden files, backups ending in "~" and names
/// with line breaks. Empty if there is no folder; nullopt if it cannot be read.
[[nodiscard]] std::optional<QList<Shortcut>> list();

/// Creates the folder, if it does not exist, with an explanation and a first shortcut. Returns an
/// empty string, or why it failed.
[[nodiscard]] QString prepare();

} // namespace perchly::shortcutsfolder
