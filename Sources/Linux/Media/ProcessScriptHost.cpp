#include "ProcessScriptHost.h"

#include "ChildProcess.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <memory>

namespace perchly {

namespace {

/// A reading is some kilobytes at the most.
constexpr qsizetype mostOutput = 256 * 1024;

class ScriptRun : public ScheduledTask {
public:
    ScriptRun() = default;
    ~ScriptRun() override { m_stop->send(); }

    [[nodiscard]] std::shared_ptr<StopRequest> stop() const { return m_stop; }

private:
    std::shared_ptr<StopRequest> m_stop = std::make_shared<StopRequest>();
};

} // namespace

ProcessScriptHost::ProcessScriptHost(QString program)
    : m_program(std::move(program)) {
    m_pool.setMaxThreadCount(4); // a reading, a command and its verification, and one to spare
    m_pool.setExpiryTimeout(10'000);
}

QString ProcessScriptHost::findCompanion() {
    const QDir folder(QCoreApplication::applicationDirPath());
    for (const auto *place : {"perchly-scripthost", "../libexec/perchly/perchly-scripthost"}) {
        const QFileInfo file(folder.filePath(QLatin1StringView(place)));
        if (file.isFile() && file.isExecutable()) {
            return file.canonicalFilePath();
        }
    }
    return {};
}

Task ProcessScriptHost::run(const QStringList &arguments,
                            std::optional<std::chrono::milliseconds> limit, Completion completion) {
    auto task = std::make_unique<ScriptRun>();
    // The thread knows the request for as long as it needs it; the answer knows whether the task,
    // which holds the other reference, is still wanted.
    const std::weak_ptr<StopRequest> wanted = task->stop();
    m_pool.start([this, program = m_program, arguments, limit, stop = task->stop(), wanted,
                  completion = std::move(completion)]() mutable {
        auto output = runChild(program, arguments, limit, mostOutput, *stop);
        stop.reset();
        QMetaObject::invokeMethod(
            &m_receiver,
            [wanted, output = std::move(output), completion = std::move(completion)] {
                if (!wanted.expired()) {
                    completion(output);
                }
            },
            Qt::QueuedConnection);
    });
    return task;
}

} // namespace perchly
