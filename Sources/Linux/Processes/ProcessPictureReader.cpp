#include "ProcessPictureReader.h"

namespace perchly {

using namespace std::chrono_literals;

namespace {

constexpr auto timeLimit = 30s; // the companion ends itself before
constexpr qsizetype maxPngBytes = 256 << 20;

} // namespace

ProcessPictureReader::ProcessPictureReader(QString program)
    : m_program(std::move(program)) {}

Task ProcessPictureReader::readAsPng(const QString &path, int maxSide, Completion completion) {
    ChildRuns &runs = maxSide > 0 ? m_reducedRuns : m_runs;
    return runs.run(m_program, {path, QString::number(maxSide)},
                    {.time = timeLimit, .maxOutput = maxPngBytes}, OnStop::EndChild,
                    [completion = std::move(completion)](const ChildResult &result) {
                        completion(result.status == 0 ? result.output : QByteArray());
                    });
}

} // namespace perchly
