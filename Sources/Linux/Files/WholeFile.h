#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// Files that are read and replaced as a whole, so that readers find either the old or the new
/// version. Errors are texts for the user. Any thread.
namespace perchly::wholefile {

struct Contents {
    bool exists = false;
    QByteArray bytes;
    QString error; ///< why an existing file could not be read, or empty
};

enum class Durability {
    System, ///< survives the end of this program, but not a power cut
    Disk    ///< flushed to the disk
};

[[nodiscard]] Contents read(const QString &path);

/// Creates or replaces the file, readable only by its owner. Writes through a symbolic link to a
/// file. Creates missing folders, the last one accessible only to its owner. On failure the old
/// file is unchanged. Returns an empty string, or why it failed.
[[nodiscard]] QString replace(const QString &path, const QByteArray &bytes, Durability durability);

/// Waits until the file is on the disk. Returns an empty string, or why it failed.
[[nodiscard]] QString flush(const QString &path);

/// Gives the file the first free name of "path.kept-1", "path.kept-2", … Also keeps the old name,
/// if the file system can, so that a file exists at every moment until replace(). Returns the new
/// name, or nullopt if that fails.
[[nodiscard]] std::optional<QString> setAside(const QString &path);

} // namespace perchly::wholefile
