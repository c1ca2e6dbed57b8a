#include "ChildRuns.h"

#include <QPointer>

namespace perchly {

namespace {

class ChildTask : public ScheduledTask {
public:
    explicit ChildTask(ChildProcess *child)
        : m_child(child) {}
    ~ChildTask() override {
        if (m_child) {
            m_child->abandon();
        }
    }

private:
    QPointer<ChildProcess> m_child;
};

} // namespace

Task ChildRuns::run(const QString &program, const QStringList &arguments, const ChildLimits &limits,
                    OnStop onStop, Completion completion) {
    auto *child =
        new ChildProcess(program, arguments, limits, onStop, std::move(completion), &m_children);
    QObject::connect(child, &ChildProcess::exited, &m_children, [this] { startWaiting(); });
    QMetaObject::invokeMethod(
        &m_children, [this] { startWaiting(); }, Qt::QueuedConnection);
    return std::make_unique<ChildTask>(child);
}

void ChildRuns::endAll() {
    for (auto *child : m_children.findChildren<ChildProcess *>()) {
        child->end();
    }
}

void ChildRuns::startWaiting() {
    int running = 0;
    for (auto *child : m_children.findChildren<ChildProcess *>()) { // the oldest first
        if (child->isWaiting() && running < m_maxAtOnce) {
            child->start();
        }
        running += child->isRunning() ? 1 : 0;
    }
}

} // namespace perchly
