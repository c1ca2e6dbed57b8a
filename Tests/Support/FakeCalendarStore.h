#pragma once

#include "CalendarStore.h"

#include <functional>
#include <memory>
#include <vector>

namespace perchly {

/// Calendars whose person answers when the test says so. Events are answered by answerEvents().
class FakeCalendarStore : public CalendarStore {
public:
    using CalendarStore::CalendarStore;

    CalendarAccess access() const override { return granted; }
    Task requestAccess(AccessCompletion completion) override {
        return keep(m_questions, [this, completion = std::move(completion)] {
            granted = answer.access;
            completion(answer);
        });
    }
    Task events(Clock::TimePoint from, Clock::TimePoint to, EventsCompletion completion) override {
        window = {from, to};
        return keep(m_searches, [this, completion = std::move(completion)] { completion(stored); });
    }

    /// Ends the question under way; false without one.
    bool answerAccess(const Answer &with) {
        answer = with;
        return finish(m_questions);
    }
    /// Ends the search under way; false without one.
    bool answerEvents() { return finish(m_searches); }

    CalendarAccess granted = CalendarAccess::NotAsked;
    Answer answer;
    QList<CalendarEvent> stored;                          ///< what a search ends with
    std::pair<Clock::TimePoint, Clock::TimePoint> window; ///< of the last search

private:
    using Call = std::shared_ptr<std::function<void()>>;
    using Calls = std::vector<std::weak_ptr<std::function<void()>>>;
    struct Handle : ScheduledTask {
        explicit Handle(Call held)
            : call(std::move(held)) {}
        Call call;
    };

    static Task keep(Calls &calls, std::function<void()> end) {
        auto call = std::make_shared<std::function<void()>>(std::move(end));
        calls.push_back(call);
        return std::make_unique<Handle>(call);
    }
    static bool finish(Calls &calls) {
        bool any = false;
        for (const auto &waiting : std::exchange(calls, {})) {
            if (const Call call = waiting.lock()) {
                any = true;
                (*call)();
            }
        }
        return any;
    }

    Calls m_questions;
    Calls m_searches;
};

} // namespace perchly
