#pragma once

#include "CalendarStore.h"
#include "PendingCalls.h"

namespace perchly {

/// Calendars whose questions and searches the test answers.
class FakeCalendarStore : public CalendarStore {
public:
    using CalendarStore::CalendarStore;

    CalendarAccess access() const override { return granted; }
    Task requestAccess(AccessCompletion completion) override {
        return questions.add(std::move(completion));
    }
    Task events(Clock::TimePoint, Clock::TimePoint, EventsCompletion completion) override {
        return searches.add(std::move(completion));
    }
    bool isReadable() const override { return readable; }
    void expectChange() override { ++expectedChanges; }

    /// Ends the oldest search with the stored events; false if no search is running.
    bool answerEvents() { return searches.answer(stored); }

    CalendarAccess granted = CalendarAccess::NotAsked;
    PendingCalls<AccessCompletion> questions;
    PendingCalls<EventsCompletion> searches;
    bool readable = true;
    int expectedChanges = 0;
    QList<CalendarEvent> stored;
};

} // namespace perchly
