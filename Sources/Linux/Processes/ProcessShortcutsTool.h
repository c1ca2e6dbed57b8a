#pragma once

#include "ChildRuns.h"
#include "ShortcutsTool.h"

namespace perchly {

/// Runs the companion that lists and runs shortcuts.
class ProcessShortcutsTool : public ShortcutsTool {
public:
    /// The companion's absolute path; empty when there is none.
    explicit ProcessShortcutsTool(QString program);

    [[nodiscard]] Task execute(const QStringList &arguments, Completion completion) override;
    void stopRuns() override;
    [[nodiscard]] QString folder() const override;
    void prepareFolder(FolderCompletion completion) override;

private:
    QString m_program;
    QObject m_receiver; ///< completions run in its thread, as long as it lives
    ChildRuns m_lists;
    ChildRuns m_runs;   ///< which may take for ever
    QThreadPool m_pool; ///< destroyed first: it waits for the threads
};

} // namespace perchly
