#pragma once

#include "PendingCalls.h"
#include "ScriptHost.h"

namespace perchly {

/// A companion whose runs end when the test says so.
class FakeScriptHost : public ScriptHost {
public:
    bool isRunnable() const override { return true; }
    Task run(const QStringList &arguments, std::optional<std::chrono::milliseconds>,
             Completion completion) override {
        scripts.append(arguments.constLast());
        return runs.add(std::move(completion));
    }

    /// The first run under way ends well, or fails; false without one.
    bool answer(const QByteArray &output) { return runs.answer(output); }
    bool fail() { return runs.answer(std::nullopt); }

    PendingCalls<Completion> runs;
    QStringList scripts; ///< of every run, in order
};

} // namespace perchly
