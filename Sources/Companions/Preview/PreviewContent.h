#pragma once

#include "FileFacts.h"

#include <QImage>
#include <QSize>

#include <memory>

class QPdfDocument;

namespace perchly {

/// The content of a file, as far as it is shown. A file that cannot be shown has the kind Other.
struct PreviewContent {
    FileFacts facts;
    QImage picture = {}; ///< for the kind Picture
    QString text = {};   ///< for the kind Text: the start, at most a megabyte
    /// For the kind Pdf, with its bytes in memory. Belongs to the main thread.
    std::shared_ptr<QPdfDocument> pdf = {};
};

/// Reads only as much as is shown and scales pictures down to the given size in pixels. Leaves
/// sound and video to the player. Blocks; any thread.
[[nodiscard]] PreviewContent loadPreview(const QUrl &url, const QSize &maxPicture);

} // namespace perchly
