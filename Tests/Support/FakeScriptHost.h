#pragma once

#include "PendingCalls.h"
#include "ScriptHost.h"

namespace perchly {

/// A companion whose runs end when the test says so.
class FakeScriptHost : public ScriptHost {
public:
    bool isRunnable() const override { return runnable; }
    Task run(const QStringList &arguments, std::optional<std::chrono::milliseconds> limit,
             Completion completion) override {
        started.push_back({arguments, limit});
        return m_runs.add({arguments.constLast(), std::move(completion)});
    }

    /// The first run under way ends well, or fails. There must be one.
    void answer(const QByteArray &output) { m_runs.take()->completion(output); }
    void fail() { m_runs.take()->completion(std::nullopt); }

    /// The script of the first run under way; empty without one.
    [[nodiscard]] QString script() const {
        return m_runs.count() > 0 ? m_runs.first().script : QString();
    }
    [[nodiscard]] qsizetype underWay() const { return qsizetype(m_runs.count()); }

    struct Started {
        QStringList arguments;
        std::optional<std::chrono::milliseconds> limit;
    };

    bool runnable = true;
    std::vector<Started> started; ///< every run there was, in order

private:
    struct Run {
        QString script;
        Completion completion;
    };

    PendingCalls<Run> m_runs;
};

} // namespace perchly
