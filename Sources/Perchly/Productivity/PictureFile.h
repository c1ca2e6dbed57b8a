#pragma once

#include <QByteArray>
#include <QString>

/// Files that may hold a picture. Each call blocks while the file is read; any thread.
namespace perchly::picturefile {

/// Whether an ordinary file begins as a picture of a kind that can be shown.
[[nodiscard]] bool isPicture(const QString &path);

/// The file's picture as a PNG; empty if it holds none, or one that is too large to be decoded.
[[nodiscard]] QByteArray asPng(const QString &path);

} // namespace perchly::picturefile
