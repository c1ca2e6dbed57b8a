#pragma once

#include "ScriptHost.h"

#include <memory>
#include <vector>

namespace perchly {

/// A companion whose runs end when the test says so.
class FakeScriptHost : public ScriptHost {
public:
    bool isRunnable() const override { return runnable; }
    Task run(const QStringList &arguments, std::optional<std::chrono::milliseconds> limit,
             Completion completion) override;

    /// The first run under way ends well, or fails. There must be one.
    void answer(const QByteArray &output) { finish(output); }
    void fail() { finish(std::nullopt); }

    /// The script of the first run under way.
    [[nodiscard]] QString script() const;
    [[nodiscard]] qsizetype underWay() const { return qsizetype(m_runs.size()); }

    struct Started {
        QStringList arguments;
        std::optional<std::chrono::milliseconds> limit;
    };

    bool runnable = true;
    std::vector<Started> started; ///< every run there was, in order

private:
    struct Run;
    class Handle;

    void finish(const std::optional<QByteArray> &output);

    std::vector<std::shared_ptr<Run>> m_runs;
};

} // namespace perchly
