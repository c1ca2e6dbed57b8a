#include "ProcessScriptHost.h"

namespace perchly {

namespace {

/// A reading takes a few kilobytes.
constexpr qsizetype maxOutput = 256 * 1024;

} // namespace

ProcessScriptHost::ProcessScriptHost(QString program)
    : m_program(std::move(program))
    , m_runs(4) {} // a reading, a command, its verification, and one spare

Task ProcessScriptHost::run(const QStringList &arguments,
                            std::optional<std::chrono::milliseconds> limit, Completion completion) {
    return m_runs.run(
        m_program, arguments, {.time = limit, .maxOutput = maxOutput}, OnStop::EndChild,
        [completion = std::move(completion)](const ChildResult &child) {
            completion(child.status == 0 ? std::optional(child.output) : std::nullopt);
        });
}

} // namespace perchly
