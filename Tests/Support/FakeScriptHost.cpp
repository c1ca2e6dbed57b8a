#include "FakeScriptHost.h"

#include <QtGlobal>

namespace perchly {

struct FakeScriptHost::Run {
    QStringList arguments;
    Completion completion;
};

class FakeScriptHost::Handle : public ScheduledTask {
public:
    Handle(FakeScriptHost &host, std::shared_ptr<Run> run)
        : m_host(host)
        , m_run(std::move(run)) {}
    ~Handle() override { std::erase(m_host.m_runs, m_run); }

private:
    FakeScriptHost &m_host;
    std::shared_ptr<Run> m_run;
};

Task FakeScriptHost::run(const QStringList &arguments,
                         std::optional<std::chrono::milliseconds> limit, Completion completion) {
    started.push_back({arguments, limit});
    m_runs.push_back(std::make_shared<Run>(Run{arguments, std::move(completion)}));
    return std::make_unique<Handle>(*this, m_runs.back());
}

QString FakeScriptHost::script() const {
    return m_runs.empty() ? QString() : m_runs.front()->arguments.constLast();
}

void FakeScriptHost::finish(const std::optional<QByteArray> &output) {
    Q_ASSERT(!m_runs.empty());
    const auto run = m_runs.front(); // outlives the handle that the completion may destroy
    m_runs.erase(m_runs.begin());
    run->completion(output);
}

} // namespace perchly
