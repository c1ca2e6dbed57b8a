#pragma once

#include "PendingCalls.h"
#include "ScriptHost.h"

namespace perchly {

/// A companion whose runs the test ends.
class FakeScriptHost : public ScriptHost {
public:
    bool isRunnable() const override { return true; }
    Task run(const QStringList &arguments, std::optional<std::chrono::milliseconds>,
             Completion completion) override {
        scripts.append(arguments.constLast());
        return runs.add(std::move(completion));
    }

    /// Lets the oldest run succeed or fail; false if nothing is running.
    bool answer(const QByteArray &output) { return runs.answer(output); }
    bool fail() { return runs.answer(std::nullopt); }

    PendingCalls<Completion> runs;
    QStringList scripts; ///< of every run, in order
};

} // namespace perchly
