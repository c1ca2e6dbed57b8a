#pragma once

#include "Clock.h"

#include <QString>
#include <QStringList>

#include <cstdint>
#include <functional>

namespace perchly {

/// Lists and runs the user's shortcuts. Nothing blocks. Main thread only.
class ShortcutsTool {
public:
    struct Result {
        std::int32_t status = -1; ///< an exit status; -1 if a shortcut was ended by a signal
        QString output = {};      ///< the list
    };
    /// Called once on the main thread, never before the call has returned.
    using Completion = std::function<void(const Result &result)>;
    /// As above; empty when it worked, else why it did not.
    using FolderCompletion = std::function<void(const QString &error)>;

    virtual ~ShortcutsTool() = default;

    /// Takes the arguments "list", or "run" and a name. The names come one to a line. A run takes
    /// as long as the shortcut does. Once the task is destroyed, the completion is not called any
    /// more; the shortcut goes on, since it may hold the user's unsaved work. The host outlives the
    /// task.
    [[nodiscard]] virtual Task execute(const QStringList &arguments, Completion completion) = 0;

    /// Ends the running shortcuts and their child processes: SIGTERM, and SIGKILL some seconds
    /// later. Their completions are called when they have ended.
    virtual void stopRuns() = 0;

    /// The absolute path of the folder that the shortcuts are in, whether it exists or not.
    [[nodiscard]] virtual QString folder() const = 0;

    /// Makes the folder if there is none yet, with a first shortcut in it to start from.
    virtual void prepareFolder(FolderCompletion completion) = 0;
};

} // namespace perchly
