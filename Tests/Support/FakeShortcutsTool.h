#pragma once

#include "PendingCalls.h"
#include "ShortcutsTool.h"

namespace perchly {

/// A tool whose calls end when the test says so.
class FakeShortcutsTool : public ShortcutsTool {
public:
    Task execute(const QStringList &arguments, Completion completion) override {
        started.append(arguments.join(u' '));
        return m_calls.add(std::move(completion));
    }
    void stopRuns() override { ++stops; }
    QString folder() const override { return QStringLiteral("/shortcuts"); }
    void prepareFolder(FolderCompletion completion) override {
        ++prepared;
        completion(folderError);
    }

    /// The call under way with that number, in the order in which they began, ends.
    void answer(int status, const QString &output = {}, std::size_t number = 0) {
        (*m_calls.take(number))({status, output});
    }
    [[nodiscard]] qsizetype underWay() const { return qsizetype(m_calls.count()); }

    QStringList started; ///< the arguments of every call there was, in order
    int prepared = 0;
    int stops = 0;
    QString folderError;

private:
    PendingCalls<Completion> m_calls;
};

} // namespace perchly
