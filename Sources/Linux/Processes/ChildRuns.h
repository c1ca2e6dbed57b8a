#pragma once

#include "ChildProcess.h"
#include "Clock.h"

namespace perchly {

/// Child processes of one kind. Main thread only.
class ChildRuns {
public:
    /// Called once, never before `run` has returned.
    using Completion = ChildProcess::Completion;

    /// Further runs wait while `maxAtOnce` are active.
    explicit ChildRuns(int maxAtOnce)
        : m_maxAtOnce(maxAtOnce) {}

    /// The program is an absolute path. Destroying the task stops the run without calling its
    /// completion. This object must outlive the task.
    [[nodiscard]] Task run(const QString &program, const QStringList &arguments,
                           const ChildLimits &limits, OnStop onStop, Completion completion);

    /// Ends all runs, whose completions are then called.
    void endAll();

private:
    void startWaiting();

    const int m_maxAtOnce;
    QObject m_children;
};

} // namespace perchly
