#pragma once

#include "ShortcutsTool.h"

#include <memory>
#include <vector>

namespace perchly {

/// A tool whose calls end when the test says so.
class FakeShortcutsTool : public ShortcutsTool {
public:
    Task execute(const QStringList &arguments, Completion completion) override {
        started.append(arguments.join(u' '));
        m_calls.push_back(std::make_shared<Completion>(std::move(completion)));
        return std::make_unique<Handle>(*this, m_calls.back());
    }
    void stopRuns() override { ++stops; }
    QString folder() const override { return QStringLiteral("/shortcuts"); }
    void prepareFolder(FolderCompletion completion) override {
        ++prepared;
        completion(folderError);
    }

    /// The call under way with that number, in the order in which they began, ends.
    void answer(int status, const QString &output = {}, std::size_t number = 0) {
        const auto completion = m_calls.at(number); // outlives the handle that it may destroy
        std::erase(m_calls, completion);
        (*completion)({status, output});
    }
    [[nodiscard]] qsizetype underWay() const { return qsizetype(m_calls.size()); }

    QStringList started; ///< the arguments of every call there was, in order
    int prepared = 0;
    int stops = 0;
    QString folderError;

private:
    class Handle : public ScheduledTask {
    public:
        Handle(FakeShortcutsTool &tool, std::shared_ptr<Completion> call)
            : m_tool(tool)
            , m_call(std::move(call)) {}
        ~Handle() override { std::erase(m_tool.m_calls, m_call); }

    private:
        FakeShortcutsTool &m_tool;
        std::shared_ptr<Completion> m_call;
    };

    std::vector<std::shared_ptr<Completion>> m_calls;
};

} // namespace perchly
