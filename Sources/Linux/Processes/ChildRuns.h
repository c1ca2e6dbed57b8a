#pragma once

#include "ChildProcess.h"
#include "Clock.h"

#include <QObject>
#include <QThreadPool>

#include <functional>
#include <memory>
#include <vector>

namespace perchly {

/// Child processes, each watched by a pool thread of its own. Main thread only.
class ChildRuns {
public:
    /// Called once in the thread that made this object, never before `run` has returned.
    using Completion = std::function<void(const ChildResult &result)>;

    /// More runs than `mostAtOnce` wait for their turn.
    explicit ChildRuns(int mostAtOnce);

    /// Destroying the task stops the run, and its completion is not called any more. This object
    /// outlives the task.
    [[nodiscard]] Task run(const QString &program, const QStringList &arguments,
                           const ChildLimits &limits, OnStop onStop, Completion completion);

    /// Ends the children of all runs, whose completions are then called.
    void endAll();

private:
    std::vector<std::weak_ptr<StopRequest>> m_stops;
    QObject m_receiver; ///< completions run in its thread, as long as it lives
    QThreadPool m_pool; ///< destroyed first: it waits for the threads
};

} // namespace perchly
