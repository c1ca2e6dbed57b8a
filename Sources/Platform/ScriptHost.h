#pragma once

#include "Clock.h"

#include <QByteArray>
#include <QStringList>

#include <chrono>
#include <functional>
#include <optional>

namespace perchly {

/// Runs the companion that speaks to media players, one process for each script. Nothing blocks:
/// each run is watched by another thread. Main thread only.
class ScriptHost {
public:
    /// Called once on the main thread, never before `run` has returned: the whole standard output
    /// of a run that ended with status 0; nothing for one that did not, that could not be started,
    /// that was ended at its limit, or that wrote more than any script has to say.
    using Completion = std::function<void(const std::optional<QByteArray> &output)>;

    virtual ~ScriptHost() = default;

    /// False while the companion is not installed.
    [[nodiscard]] virtual bool isRunnable() const = 0;

    /// Runs the companion with these arguments; at the limit, if there is one, the process is
    /// ended. Destroying the task ends the process, and its completion is not called any more. The
    /// host outlives the task.
    [[nodiscard]] virtual Task run(const QStringList &arguments,
                                   std::optional<std::chrono::milliseconds> limit,
                                   Completion completion) = 0;
};

} // namespace perchly
