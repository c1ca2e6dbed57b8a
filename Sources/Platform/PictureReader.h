#pragma once

#include "Clock.h"

#include <QByteArray>
#include <QString>

#include <functional>

namespace perchly {

/// Decodes files of any picture format, which may be hostile, outside this process. Main thread
/// only.
class PictureReader {
public:
    /// Called once on the main thread, never before the call has returned, with the picture as a
    /// PNG. Empty if the file holds no picture, or one that is too large or takes too long.
    using Completion = std::function<void(const QByteArray &png)>;

    virtual ~PictureReader() = default;

    /// Reads a regular file; unless `maxSide` is 0, reduces the picture to that width and height in
    /// pixels. Destroying the task stops the reading, and the completion is not called any more.
    /// The host must outlive the task.
    [[nodiscard]] virtual Task readAsPng(const QString &path, int maxSide,
                                         Completion completion) = 0;
};

} // namespace perchly
