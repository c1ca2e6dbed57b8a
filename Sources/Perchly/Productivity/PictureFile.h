#pragma once

#include <QByteArray>
#include <QString>

/// Files that may hold a picture. Each call blocks while the file is read; any thread.
namespace perchly::picturefile {

/// Whether a regular file starts like a picture of a supported format.
[[nodiscard]] bool isPicture(const QString &path);

/// The file's picture as a PNG; empty if it has none, or one that is too large to decode.
[[nodiscard]] QByteArray asPng(const QString &path);

} // namespace perchly::picturefile
