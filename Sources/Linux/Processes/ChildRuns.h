#pragma once

#include "ChildProcess.h"
#include "Clock.h"

namespace perchly {

/// Child processes of one kind. Main thread only.
class ChildRuns {
public:
    /// Called once, never before `run` has returned.
    using Completion = ChildProcess::Completion;

    /// More runs than `maxAtOnce` wait for their turn.
    explicit ChildRuns(int maxAtOnce)
        : m_maxAtOnce(maxAtOnce) {}

    /// The program is an absolute path. Destroying the task stops the run, and its completion is
    /// not called any more. This object outlives the task.
    [[nodiscard]] Task run(const QString &program, const QStringList &arguments,
                           const ChildLimits &limits, OnStop onStop, Completion completion);

    /// Ends the children of all runs, whose completions are then called.
    void endAll();

private:
    void startWaiting();

    const int m_maxAtOnce;
    QObject m_children;
};

} // namespace perchly
