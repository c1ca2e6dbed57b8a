#pragma once

#include "ChildRuns.h"
#include "ScreenCapture.h"

namespace perchly {

/// Runs the companion in which the user selects a part of the screen.
class ProcessScreenCapture : public ScreenCapture {
public:
    /// Takes the companion's absolute path, empty if it is not installed.
    explicit ProcessScreenCapture(QString program);

    [[nodiscard]] Task captureRegion(const QString &path, Completion completion) override;

private:
    QString m_program;
    ChildRuns m_runs;
};

} // namespace perchly
