#pragma once

#include "Clock.h"

#include <memory>
#include <vector>

namespace perchly {

/// The unanswered calls of a fake, oldest first. Destroying a call's task removes the call. The
/// tasks must not outlive this object.
template <class Call>
class PendingCalls {
public:
    [[nodiscard]] Task add(Call call) {
        m_calls.push_back(std::make_shared<Call>(std::move(call)));
        return std::make_unique<Handle>(*this, m_calls.back());
    }

    /// Calls the oldest completion, which may destroy its task; false if nothing is pending.
    bool answer(const auto &value) {
        const auto oldest = m_calls.empty() ? nullptr : m_calls.front();
        return remove(oldest) && ((*oldest)(value), true);
    }

    /// False if the call is no longer pending.
    bool remove(const std::shared_ptr<Call> &call) { return std::erase(m_calls, call) > 0; }

    [[nodiscard]] const std::vector<std::shared_ptr<Call>> &all() const { return m_calls; }
    [[nodiscard]] std::size_t count() const { return m_calls.size(); }

private:
    class Handle : public ScheduledTask {
    public:
        Handle(PendingCalls &calls, std::shared_ptr<Call> call)
            : m_owner(calls)
            , m_call(std::move(call)) {}
        ~Handle() override { std::erase(m_owner.m_calls, m_call); }

    private:
        PendingCalls &m_owner;
        std::shared_ptr<Call> m_call;
    };

    std::vector<std::shared_ptr<Call>> m_calls;
};

} // namespace perchly
