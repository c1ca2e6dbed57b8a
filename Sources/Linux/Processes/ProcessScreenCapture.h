#pragma once

#include "ChildRuns.h"
#include "ScreenCapture.h"

namespace perchly {

/// Runs the companion in which the user chooses a part of the screen.
class ProcessScreenCapture : public ScreenCapture {
public:
    /// The companion's absolute path; empty when there is none.
    explicit ProcessScreenCapture(QString program);

    [[nodiscard]] Task captureRegion(const QString &path, Completion completion) override;

private:
    QString m_program;
    ChildRuns m_runs;
};

} // namespace perchly
