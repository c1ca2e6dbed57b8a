#pragma once

#include "Clock.h"

#include <QByteArray>
#include <QStringList>

#include <chrono>
#include <functional>
#include <optional>

namespace perchly {

/// Runs the companion that talks to media players, one process per script. Nothing blocks. Main
/// thread only.
class ScriptHost {
public:
    /// Called once on the main thread, never before run() has returned: with the standard output if
    /// the status was 0; with nullopt if the run failed, could not start, exceeded its time limit,
    /// or wrote too much.
    using Completion = std::function<void(const std::optional<QByteArray> &output)>;

    virtual ~ScriptHost() = default;

    /// False if the companion is not installed.
    [[nodiscard]] virtual bool isRunnable() const = 0;

    /// Runs the companion with these arguments and kills it at the time limit, if there is one.
    /// Destroying the task ends the process without calling its completion. The host must outlive
    /// the task.
    [[nodiscard]] virtual Task run(const QStringList &arguments,
                                   std::optional<std::chrono::milliseconds> limit,
                                   Completion completion) = 0;
};

} // namespace perchly
