#include "CopiedPicture.h"

namespace perchly {

QByteArray copiedPictureFormat(const QByteArray &encoded) {
    if (encoded.startsWith("\x89PNG")) {
        return "png";
    }
    const bool isTiff = encoded.startsWith(QByteArray::fromRawData("II*\0", 4)) ||
                        encoded.startsWith(QByteArray::fromRawData("MM\0*", 4));
    return isTiff ? QByteArray("tiff") : QByteArray();
}

} // namespace perchly
