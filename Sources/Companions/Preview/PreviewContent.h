#pragma once

#include "FileFacts.h"

#include <QImage>
#include <QSize>

namespace perchly {

/// A file as far as it is shown. What cannot be shown has the kind Other, and its facts remain.
struct PreviewContent {
    FileFacts facts;
    QImage picture = {}; ///< for the kind Picture; as large as asked for at most
    QString text = {};   ///< for the kind Text: the beginning, a megabyte at most
};

/// Reads no more than is shown. Sound, video and PDF are read by those who show them. Blocks; any
/// thread.
[[nodiscard]] PreviewContent loadPreview(const QUrl &url, const QSize &largestPicture);

} // namespace perchly
