#include "FolderShortcutsTool.h"

#include <algorithm>

namespace perchly {

using namespace std::chrono_literals;

namespace {

constexpr auto runGrace = 2s; // time to save its work

} // namespace

struct FolderShortcutsTool::Call {
    Completion completion;
    Task child; ///< set while a shortcut runs
};

struct FolderShortcutsTool::CallTask : ScheduledTask {
    explicit CallTask(std::shared_ptr<Call> held)
        : call(std::move(held)) {}
    std::shared_ptr<Call> call;
};

Task FolderShortcutsTool::execute(const QStringList &arguments, Completion completion) {
    auto call = std::make_shared<Call>(Call{std::move(completion), {}});
    m_workers.run(&shortcutsfolder::list,
                  [this, arguments, weak = std::weak_ptr(call)](const auto &shortcuts) {
                      const std::shared_ptr<Call> waiting = weak.lock();
                      if (!waiting) {
                          return;
                      }
                      if (!shortcuts) {
                          waiting->completion({.status = 1});
                      } else if (arguments.value(0) == QLatin1StringView("run")) {
                          const auto found = std::ranges::find(*shortcuts, arguments.value(1),
                                                               &shortcutsfolder::Shortcut::name);
                          run(found == shortcuts->end() ? QString() : found->file, waiting);
                      } else {
                          QString names;
                          for (const auto &shortcut : *shortcuts) {
                              names += shortcut.name + u'\n';
                          }
                          waiting->completion({.status = 0, .output = names});
                      }
                  });
    return std::make_unique<CallTask>(std::move(call));
}

void FolderShortcutsTool::run(const QString &file, const std::shared_ptr<Call> &call) {
    if (file.isEmpty()) {
        call->completion({.status = 1});
        return;
    }
    // The shell also runs a script without an interpreter line.
    call->child =
        m_runs.run(QStringLiteral("/bin/sh"),
                   {QStringLiteral("-c"), QStringLiteral("cd || cd /; exec \"$0\""), file},
                   {.grace = runGrace}, OnStop::LeaveChild,
                   [completion = call->completion](const ChildResult &result) {
                       completion({.status = result.status.value_or(-1)});
                   });
}

void FolderShortcutsTool::prepareFolder(FolderCompletion completion) {
    m_workers.run(
        &shortcutsfolder::prepare, [completion = std::move(completion)](const QString &error) {
            completion(error.isEmpty()
                           ? QString()
                           : QStringLiteral("The shortcuts folder cannot be made: %1.").arg(error));
        });
}

} // namespace perchly
