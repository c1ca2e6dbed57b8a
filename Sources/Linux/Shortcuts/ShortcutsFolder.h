#pragma once

#include <QList>
#include <QString>

#include <optional>

/// The folder of the user's shortcuts. Any thread; all but path() read or write files.
namespace perchly::shortcutsfolder {

struct Shortcut {
    QString name; ///< in one line
    QString file; ///< absolute path
};

/// The absolute path, whether the folder exists or not.
[[nodiscard]] QString path();

/// The executable files, sorted by name. A name is the file's name without its extension; of two
/// files with the same name, only the first counts. Hidden files, backups ending in "~" and names
/// of several lines are left out. Empty if there is no folder; nothing if it cannot be read.
[[nodiscard]] std::optional<QList<Shortcut>> list();

/// Makes the folder if it does not exist, with an explanation and a first shortcut in it. Returns
/// the empty string, or the reason if it fails.
[[nodiscard]] QString prepare();

} // namespace perchly::shortcutsfolder
