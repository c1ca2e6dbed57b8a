#pragma once

#include "Clock.h"

#include <QImage>
#include <QString>

#include <functional>

namespace perchly {

/// Small pictures of files, as file managers show them. Main thread only.
class FilePictures {
public:
    /// Called once on the main thread, never before the call has returned. Null if neither a
    /// picture of the file nor an icon of its type is found.
    using Completion = std::function<void(const QImage &picture)>;

    virtual ~FilePictures() = default;

    /// Finds the desktop's thumbnail of a file, makes one if it is a picture, or else finds the
    /// icon of its type, at most `side` pixels wide and high. Destroying the task stops this, and
    /// the completion is not called any more. The host must outlive the task.
    [[nodiscard]] virtual Task read(const QString &path, int side, Completion completion) = 0;
};

} // namespace perchly
