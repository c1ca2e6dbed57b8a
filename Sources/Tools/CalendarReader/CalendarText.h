#pragma once

#include "TimeWindow.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace perchly {

/// The text of one event, from its first line to its last.
struct EventText {
    std::string text;
    std::string uid;          ///< empty if it has none
    bool isException = false; ///< stands for single occurrences of the event with the same uid
};

struct CalendarText {
    /// Only those that may take place in the window; which of them do is not known yet.
    std::vector<EventText> events;
    std::map<std::string, std::string> zones; ///< the text of each zone by its name
    bool whole = false; ///< the file ends where a calendar does: nothing is missing at its end
    bool all = true;    ///< nothing was left out for want of memory
};

/// About what an event of that text takes in memory while calendars are read.
[[nodiscard]] constexpr std::size_t memoryOf(std::string_view text) {
    return text.size() + 256;
}

/// Takes a calendar file apart without understanding it, in one walk over its lines, so that what
/// lies outside the window costs next to nothing.
[[nodiscard]] CalendarText splitCalendar(std::string_view file, const TimeWindow &window);

} // namespace perchly
