#pragma once

#include "Clock.h"

#include <QString>

#include <functional>

namespace perchly {

/// Lets the user choose a part of the screen and saves a picture of it. Main thread only.
class ScreenCapture {
public:
    /// Called once on the main thread, never before the call has returned, with the exit status of
    /// the capture: 0 on success, -1 if it could not start. If the user cancels, it is 0 and there
    /// is no file.
    using Completion = std::function<void(int status)>;

    virtual ~ScreenCapture() = default;

    /// Writes a PNG that only its owner can read to the absolute path, completely or not at all.
    /// Takes as long as the user does. Destroying the task ends the capture without calling the
    /// completion. The host must outlive the task.
    [[nodiscard]] virtual Task captureRegion(const QString &path, Completion completion) = 0;
};

} // namespace perchly
