#pragma once

#include "ChildRuns.h"
#include "PictureReader.h"

namespace perchly {

/// Runs the companion that decodes pictures, one at a time.
class ProcessPictureReader : public PictureReader {
public:
    /// Takes the companion's absolute path, empty if it is not installed.
    explicit ProcessPictureReader(QString program);

    [[nodiscard]] Task readAsPng(const QString &path, Completion completion) override;

private:
    QString m_program;
    ChildRuns m_runs;
};

} // namespace perchly
