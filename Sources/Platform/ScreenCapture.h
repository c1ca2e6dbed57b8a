#pragma once

#include "Clock.h"

#include <QString>

#include <functional>

namespace perchly {

/// Lets the user choose a part of the screen and keeps a picture of it. Main thread only.
class ScreenCapture {
public:
    /// Called once on the main thread, never before the call has returned, with the exit status of
    /// the capture: 0 when it was not refused or given up, -1 when it could not be started. Whether
    /// there is a picture, the file itself tells.
    using Completion = std::function<void(int status)>;

    virtual ~ScreenCapture() = default;

    /// Writes a PNG that its owner alone can read to the absolute path, all at once. Takes as long
    /// as the user does. Destroying the task ends the choosing, and the completion is not called
    /// any more. The host outlives the task.
    [[nodiscard]] virtual Task captureRegion(const QString &path, Completion completion) = 0;
};

} // namespace perchly
