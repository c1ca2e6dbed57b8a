#include "ChildRuns.h"

#include <memory>

namespace perchly {

namespace {

class ChildRun : public ScheduledTask {
public:
    ChildRun() = default;
    ~ChildRun() override { m_stop->send(); }

    [[nodiscard]] std::shared_ptr<StopRequest> stop() const { return m_stop; }

private:
    std::shared_ptr<StopRequest> m_stop = std::make_shared<StopRequest>();
};

} // namespace

ChildRuns::ChildRuns(int mostAtOnce) {
    m_pool.setMaxThreadCount(mostAtOnce);
    m_pool.setExpiryTimeout(10'000);
}

Task ChildRuns::run(const QString &program, const QStringList &arguments, const ChildLimits &limits,
                    OnStop onStop, Completion completion) {
    auto task = std::make_unique<ChildRun>();
    // The thread knows the request for as long as it needs it; the answer knows whether the task,
    // which holds the other reference, is still wanted.
    const std::weak_ptr<StopRequest> wanted = task->stop();
    std::erase_if(m_stops, [](const auto &stop) { return stop.expired(); });
    m_stops.push_back(wanted);
    m_pool.start([this, program, arguments, limits, onStop, stop = task->stop(), wanted,
                  completion = std::move(completion)]() mutable {
        auto result = runChild(program, arguments, limits, *stop, onStop);
        stop.reset();
        QMetaObject::invokeMethod(
            &m_receiver,
            [wanted, result = std::move(result), completion = std::move(completion)] {
                if (!wanted.expired()) {
                    completion(result);
                }
            },
            Qt::QueuedConnection);
    });
    return task;
}

void ChildRuns::endAll() {
    for (const auto &weak : m_stops) {
        if (const auto stop = weak.lock()) {
            stop->sendEnd();
        }
    }
}

} // namespace perchly
