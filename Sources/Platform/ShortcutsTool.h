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
        std::int32_t status = -1; ///< an exit status; -1 if it did not start, or a signal ended it
        QString output = {};      ///< the list
    };
    /// Called once on the main thread, never before the call has returned.
    using Completion = std::function<void(const Result &result)>;
    /// Called in the same way, with an empty string or the error.
    using FolderCompletion = std::function<void(const QString &error)>;

    virtual ~ShortcutsTool() = default;

    /// Takes the arguments "list", or "run" and a name. A list has one name per line. A run takes
    /// as long as the shortcut does. Destroying the task drops the completion, but the shortcut
    /// continues, since it may hold the user's unsaved work. The host must outlive the task.
    [[nodiscard]] virtual Task execute(const QStringList &arguments, Completion completion) = 0;

    /// The name of a shortcut that an earlier instance of the program left running, or null.
    /// stopRuns() then ends it, too. `ended` is called once, when it has ended.
    [[nodiscard]] virtual QString resume(std::function<void()> ended) = 0;

    /// Ends the running shortcuts and their child processes: SIGTERM, then SIGKILL some seconds
    /// later. Their completions are called when they have ended.
    virtual void stopRuns() = 0;

    /// The absolute path of the shortcuts folder, whether it exists or not.
    [[nodiscard]] virtual QString folder() const = 0;

    /// Creates the folder, if it does not exist, with a first example shortcut.
    virtual void prepareFolder(FolderCompletion completion) = 0;
};

} // namespace perchly
