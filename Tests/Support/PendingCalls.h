#pragma once

#include "Clock.h"

#include <memory>
#include <utility>
#include <vector>

namespace perchly {

/// What a fake was asked for and has not answered yet. A call whose task is dropped is forgotten.
template <class Call>
class PendingCalls {
public:
    Task begin(Call call) {
        m_calls.push_back(std::make_shared<Call>(std::move(call)));
        return std::make_unique<Handle>(*this, m_calls.back());
    }
    /// Takes the call with that number out, the oldest unless told otherwise. There must be one.
    /// It outlives the handle that its answer may destroy.
    std::shared_ptr<Call> take(std::size_t number = 0) {
        const auto call = m_calls.at(number);
        std::erase(m_calls, call);
        return call;
    }
    /// The oldest call; null without one.
    [[nodiscard]] const Call *first() const {
        return m_calls.empty() ? nullptr : m_calls.front().get();
    }
    [[nodiscard]] qsizetype size() const { return qsizetype(m_calls.size()); }

private:
    struct Handle : ScheduledTask {
        Handle(PendingCalls &all, std::shared_ptr<Call> own)
            : calls(all)
            , call(std::move(own)) {}
        ~Handle() override { std::erase(calls.m_calls, call); }

        PendingCalls &calls;
        std::shared_ptr<Call> call;
    };

    std::vector<std::shared_ptr<Call>> m_calls;
};

} // namespace perchly
