#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// Files that are read and replaced as a whole, so that readers find the old or the new version and
/// never a part. Errors are texts for the user. Any thread.
namespace perchly::wholefile {

struct Contents {
    bool exists = false;
    QByteArray bytes;
    QString error; ///< why an existing file could not be read; empty when it was
};

enum class Durability {
    System, ///< survives this program, but not a power cut
    Disk    ///< flushed to the disk
};

[[nodiscard]] Contents read(const QString &path);

/// Replaces the file, or makes it, readable by its owner only. A symbolic link to a file is written
/// through. Missing folders are made, the last for its owner only. When it fails, the old file is
/// untouched. Returns the empty string, or why it failed.
[[nodiscard]] QString replace(const QString &path, const QByteArray &bytes, Durability durability);

/// Waits until the file is on the disk. Returns the empty string, or why it is not.
[[nodiscard]] QString flush(const QString &path);

/// Gives the file the first free of the names "path.kept-1", "path.kept-2", … It keeps the old name
/// too where the file system can do that, so that replace() leaves no moment without a file.
/// Returns the new name, or nothing if that fails.
[[nodiscard]] std::optional<QString> setAside(const QString &path);

} // namespace perchly::wholefile
