#pragma once

#include "ChildRuns.h"
#include "LeftProcess.h"
#include "ShortcutsFolder.h"
#include "ShortcutsTool.h"
#include "Workers.h"

#include <memory>

namespace perchly {

/// Lists and runs the executable files of the shortcuts folder. Records the process of the last one
/// in the runtime folder, where the next instance of the program finds it.
class FolderShortcutsTool : public ShortcutsTool {
public:
    [[nodiscard]] Task execute(const QStringList &arguments, Completion completion) override;
    [[nodiscard]] QString resume(std::function<void()> ended) override;
    void stopRuns() override;
    [[nodiscard]] QString folder() const override { return shortcutsfolder::path(); }
    void prepareFolder(FolderCompletion completion) override;

private:
    struct Call;
    struct CallTask;

    void run(const shortcutsfolder::Shortcut &shortcut, const std::shared_ptr<Call> &call);

    ChildRuns m_runs{2};
    std::unique_ptr<LeftProcess> m_left;
    Workers m_workers{2};
};

} // namespace perchly
