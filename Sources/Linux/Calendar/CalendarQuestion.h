#pragma once

#include "CalendarRecords.h"
#include "CalendarStore.h"

#include <functional>
#include <optional>

namespace perchly {

/// nullopt if the dialog was closed without an answer.
using CalendarAnswer = std::function<void(std::optional<bool> isAllowed)>;

/// Asks in a dialog that lists the calendars whether Perchly may read them, or may go on reading
/// them if `current` allows it. Answers once, after the call has returned; destroying the task
/// closes the dialog without an answer. Needs a QApplication and a window system. Main thread only.
[[nodiscard]] Task askForCalendars(const QList<FoundCalendar> &calendars, CalendarAccess current,
                                   const CalendarAnswer &answer);

} // namespace perchly
