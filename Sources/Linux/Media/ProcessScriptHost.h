#pragma once

#include "ChildRuns.h"
#include "ScriptHost.h"

#include <QString>

namespace perchly {

/// Runs the companion as child processes, at most four at a time.
class ProcessScriptHost : public ScriptHost {
public:
    /// Takes the companion's absolute path, empty if it is not installed.
    explicit ProcessScriptHost(QString program);

    [[nodiscard]] bool isRunnable() const override { return !m_program.isEmpty(); }
    [[nodiscard]] Task run(const QStringList &arguments,
                           std::optional<std::chrono::milliseconds> limit,
                           Completion completion) override;

private:
    QString m_program;
    ChildRuns m_runs;
};

} // namespace perchly
