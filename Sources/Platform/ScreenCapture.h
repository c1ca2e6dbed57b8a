#pragma once

#include "Clock.h"

#include <QString>

#include <functional>

namespace perchly {

/// Lets the user choose a part of the screen and keeps a picture of it. Main thread only.
class ScreenCapture {
public:
    /// Called once on the main thread, never before the call has returned, with the exit status of
    /// the capture: 0 on success, -1 if it could not be started. Whether
    /// there is a picture shows in whether the file exists.
    using Completion = std::function<void(int status)>;

    virtual ~ScreenCapture() = default;

    /// Writes a PNG that its owner alone can read to the absolute path, all at once. Takes as long
    /// as the user does. Destroying the task ends the choosing, and the completion is not called
    /// any more. The host outlives the task.
    [[nodiscard]] virtual Task captureRegion(const QString &path, Completion completion) = 0;
};

} // namespace perchly
