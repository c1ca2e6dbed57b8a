#pragma once

#include "ScriptHost.h"

#include <QObject>
#include <QString>
#include <QThreadPool>

namespace perchly {

/// Runs the companion as child processes, each watched by a pool thread.
class ProcessScriptHost : public ScriptHost {
public:
    /// The companion's absolute path; empty when there is none.
    explicit ProcessScriptHost(QString program);

    /// The companion beside the running program, or where packages put such programs.
    [[nodiscard]] static QString findCompanion();

    [[nodiscard]] bool isRunnable() const override { return !m_program.isEmpty(); }
    [[nodiscard]] Task run(const QStringList &arguments,
                           std::optional<std::chrono::milliseconds> limit,
                           Completion completion) override;

private:
    QString m_program;
    QObject m_receiver; ///< completions run in its thread, as long as it lives
    QThreadPool m_pool; ///< destroyed first: it waits for the threads
};

} // namespace perchly
