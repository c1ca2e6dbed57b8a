#include "ProcessScreenCapture.h"

namespace perchly {

ProcessScreenCapture::ProcessScreenCapture(QString program)
    : m_program(std::move(program))
    , m_runs(1) {}

Task ProcessScreenCapture::captureRegion(const QString &path, Completion completion) {
    return m_runs.run(m_program, {QStringLiteral("-i"), QStringLiteral("-x"), path}, {},
                      OnStop::EndChild,
                      [completion = std::move(completion)](const ChildResult &result) {
                          completion(result.status.value_or(-1));
                      });
}

} // namespace perchly
