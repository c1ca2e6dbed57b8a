#pragma once

#include <QByteArray>

namespace perchly {

/// The format of a copied picture by its first bytes, "png" or "tiff", for QImageReader and
/// QImage::fromData(). Empty for any other, which must not be decoded: the bytes come from other
/// programs, and each image plug-in that parses them is one more to attack.
[[nodiscard]] QByteArray copiedPictureFormat(const QByteArray &encoded);

} // namespace perchly
