#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// Files that are read and replaced as a whole, so that whoever opens one finds an old or a new
/// version and never a part. Errors are texts for people. Any thread.
namespace perchly::wholefile {

/// Max size that is read; do not write more.
inline constexpr qsizetype maxBytes = qsizetype(64) << 20;

struct Contents {
    bool exists = false;
    QByteArray bytes;
    QString error; ///< why an existing file could not be read; empty when it was
};

/// Where the bytes go when they are called written.
enum class Durability {
    System, ///< with the system: they survive the program, not a power cut
    Disk    ///< on the disk, the folder's entry too
};

/// The file behind a chain of symbolic links, which need not exist; the path itself without one.
[[nodiscard]] QString resolveLinks(const QString &path);

/// Reads a regular file of at most maxBytes. Anything else that stands there is an error.
[[nodiscard]] Contents read(const QString &path);

/// Replaces the file, or makes it, readable by its owner only. Missing folders are made, the last
/// for its owner only. When it fails, what stood there is untouched; only a failing disk may show
/// after the file was replaced. Empty, or why it failed.
[[nodiscard]] QString replace(const QString &path, const QByteArray &bytes, Durability durability);

/// Waits until the file, or the folder's list of them, is on the disk. Empty, or why it is not.
[[nodiscard]] QString flush(const QString &path);

/// Gives whatever stands there a free name beside it ("path.kept-1", "path.kept-2", …). It keeps
/// the old name too where the file system can do that, so that replace() leaves no moment without a
/// file. The new name, or nothing when there can be none.
[[nodiscard]] std::optional<QString> setAside(const QString &path);

/// Removes what interrupted calls of replace() for this path left behind.
void removeLeftovers(const QString &path);

} // namespace perchly::wholefile
