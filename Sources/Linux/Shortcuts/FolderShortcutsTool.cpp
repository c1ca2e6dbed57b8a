#include "FolderShortcutsTool.h"

#include <QCoreApplication>
#include <QFile>
#include <QStandardPaths>

#include <algorithm>

namespace perchly {

using namespace std::chrono_literals;

namespace {

constexpr auto runGrace = 2s; // time to save its work
constexpr qsizetype startTimeField = 21;

// Records the process before it becomes the shortcut. The shell also runs a script without an
// interpreter line.
constexpr QLatin1StringView runScript("cd || cd /; read -r stat </proc/$$/stat; "
                                      "printf '%s\\n%s' \"$stat\" \"$2\" >\"$1\"; exec \"$0\"");

/// Holds the shell's line from /proc, then the shortcut's name.
QString recordFile() {
    return QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation) +
           QStringLiteral("/perchly.shortcut");
}

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
    m_workers.run(&shortcutsfolder::list, [this, arguments,
                                           weak = std::weak_ptr(call)](const auto &shortcuts) {
        const std::shared_ptr<Call> waiting = weak.lock();
        if (!waiting) {
            return;
        }
        if (!shortcuts) {
            waiting->completion({.status = -1});
        } else if (arguments.value(0) == QLatin1StringView("run")) {
            const auto found =
                std::ranges::find(*shortcuts, arguments.value(1), &shortcutsfolder::Shortcut::name);
            run(found == shortcuts->end() ? shortcutsfolder::Shortcut() : *found, waiting);
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

void FolderShortcutsTool::run(const shortcutsfolder::Shortcut &shortcut,
                              const std::shared_ptr<Call> &call) {
    if (shortcut.file.isEmpty()) {
        call->completion({.status = -1});
        return;
    }
    call->child =
        m_runs.run(QStringLiteral("/bin/sh"),
                   {QStringLiteral("-c"), runScript, shortcut.file, recordFile(), shortcut.name},
                   {.grace = runGrace}, OnStop::LeaveChild,
                   [completion = call->completion](const ChildResult &result) {
                       completion({.status = result.status.value_or(-1)});
                   });
}

QString FolderShortcutsTool::resume(std::function<void()> ended) {
    QFile record(recordFile());
    if (!record.open(QIODevice::ReadOnly)) {
        return {};
    }
    const QByteArrayList stat = record.readLine().split(' ');
    m_left = LeftProcess::find(stat.value(0).toInt(), stat.value(startTimeField).toULongLong(),
                               std::move(ended));
    return m_left ? QFile::decodeName(record.readAll()) : QString();
}

void FolderShortcutsTool::stopRuns() {
    m_runs.endAll();
    if (m_left) {
        m_left->end(runGrace);
    }
}

void FolderShortcutsTool::prepareFolder(FolderCompletion completion) {
    m_workers.run(&shortcutsfolder::prepare, [completion =
                                                  std::move(completion)](const QString &error) {
        completion(error.isEmpty() ? QString()
                                   : QCoreApplication::translate(
                                         "Shortcuts", "The shortcuts folder cannot be made: %1.")
                                         .arg(error));
    });
}

} // namespace perchly
