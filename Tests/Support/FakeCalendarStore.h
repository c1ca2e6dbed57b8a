#pragma once

#include "CalendarStore.h"
#include "PendingCalls.h"

#include <functional>

namespace perchly {

/// Calendars whose user answers when the test says so. Events are answered by answerEvents().
class FakeCalendarStore : public CalendarStore {
public:
    using CalendarStore::CalendarStore;

    CalendarAccess access() const override { return granted; }
    Task requestAccess(AccessCompletion completion) override {
        return m_questions.add([this, completion = std::move(completion)] {
            granted = answer.access;
            completion(answer);
        });
    }
    Task events(Clock::TimePoint from, Clock::TimePoint to, EventsCompletion completion) override {
        window = {from, to};
        return m_searches.add([this, completion = std::move(completion)] { completion(stored); });
    }
    bool isReadable() const override { return readable; }
    void expectChange() override { ++expectedChanges; }

    /// Ends the question under way; false without one.
    bool answerAccess(const Answer &with) {
        answer = with;
        return finish(m_questions);
    }
    /// Ends the search under way; false without one.
    bool answerEvents() { return finish(m_searches); }

    CalendarAccess granted = CalendarAccess::NotAsked;
    Answer answer;
    bool readable = true;
    int expectedChanges = 0;
    QList<CalendarEvent> stored;                          ///< what a search ends with
    std::pair<Clock::TimePoint, Clock::TimePoint> window; ///< of the last search

private:
    using Calls = PendingCalls<std::function<void()>>;

    static bool finish(Calls &calls) {
        const bool any = calls.count() > 0;
        for (auto left = calls.count(); left > 0 && calls.count() > 0; --left) {
            (*calls.take())();
        }
        return any;
    }

    Calls m_questions;
    Calls m_searches;
};

} // namespace perchly
