#pragma once

#include "FileFacts.h"

#include <QImage>
#include <QSize>

#include <memory>

class QPdfDocument;

namespace perchly {

/// A file as far as it is shown. What cannot be shown has the kind Other, and its facts remain.
struct PreviewContent {
    FileFacts facts;
    QImage picture = {}; ///< for the kind Picture
    QString text = {};   ///< for the kind Text: the beginning, a megabyte at most
    /// For the kind Pdf, with its bytes in memory. It lives in the main thread.
    std::shared_ptr<QPdfDocument> pdf = {};
};

/// Reads no more than is shown; pictures are scaled down to the given size in pixels. Sound and
/// video are read by their player. Blocks; any thread.
[[nodiscard]] PreviewContent loadPreview(const QUrl &url, const QSize &maxPicture);

} // namespace perchly
