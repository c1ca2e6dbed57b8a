#pragma once

#include "ChildRuns.h"
#include "ShortcutsFolder.h"
#include "ShortcutsTool.h"
#include "Workers.h"

#include <memory>

namespace perchly {

/// Lists and runs the executable files of the shortcuts folder.
class FolderShortcutsTool : public ShortcutsTool {
public:
    [[nodiscard]] Task execute(const QStringList &arguments, Completion completion) override;
    void stopRuns() override { m_runs.endAll(); }
    [[nodiscard]] QString folder() const override { return shortcutsfolder::path(); }
    void prepareFolder(FolderCompletion completion) override;

private:
    struct Call;
    struct CallTask;

    void run(const QString &file, const std::shared_ptr<Call> &call);

    ChildRuns m_runs{2};
    Workers m_workers{2};
};

} // namespace perchly
