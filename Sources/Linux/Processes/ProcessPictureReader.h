#pragma once

#include "ChildRuns.h"
#include "PictureReader.h"

namespace perchly {

/// Runs the companion that decodes pictures, one at a time, and one more for reduced pictures.
class ProcessPictureReader : public PictureReader {
public:
    /// Takes the companion's absolute path, empty if it is not installed.
    explicit ProcessPictureReader(QString program);

    [[nodiscard]] Task readAsPng(const QString &path, int maxSide, Completion completion) override;

private:
    QString m_program;
    ChildRuns m_runs{1};
    ChildRuns m_reducedRuns{1};
};

} // namespace perchly
