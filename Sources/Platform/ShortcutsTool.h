#pragma once

#include "Clock.h"

#include <QString>
#include <QStringList>

#include <cstdint>
#include <functional>

namespace perchly {

/// The tool that lists and runs the person's shortcuts, one process for each call. Nothing blocks.
/// Main thread only.
class ShortcutsTool {
public:
    struct Result {
        std::int32_t status = -1; ///< the tool's exit status; -1 if it did not start or was ended
        QString output;           ///< empty if it is not UTF-8, or more than any list has to say
    };
    /// Called once on the main thread, never before the call has returned.
    using Completion = std::function<void(const Result &result)>;
    /// As above; empty when it worked, else why it did not.
    using FolderCompletion = std::function<void(const QString &error)>;

    virtual ~ShortcutsTool() = default;

    /// Runs the tool with the arguments "list", or "run" and a name. The names come one to a line.
    /// A run takes as long as the shortcut does. Destroying the task ends the waiting: a list that
    /// is being made is ended too, while a shortcut goes on by itself, since it may hold the
    /// person's unsaved work. The completion is not called any more. The host outlives the task.
    [[nodiscard]] virtual Task execute(const QStringList &arguments, Completion completion) = 0;

    /// Ends the shortcuts that are running, and what they have started unless it has cut itself
    /// loose. They are asked first, and killed some seconds later; their completions are called
    /// when they have ended.
    virtual void stopRuns() = 0;

    /// The absolute path of the folder that the shortcuts are in, whether it exists or not.
    [[nodiscard]] virtual QString folder() const = 0;

    /// Makes the folder if there is none yet, with a first shortcut in it to start from.
    virtual void prepareFolder(FolderCompletion completion) = 0;
};

} // namespace perchly
