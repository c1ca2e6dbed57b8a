#pragma once

#include "TimeWindow.h"

#include <chrono>
#include <optional>

namespace perchly {

/// Asks the desktop's calendar service which calendars it has and, given a window, for their events
/// that may matter in it, and writes the answers to standard output as they come (see
/// ServiceAnswer.h). Ends at that moment at the latest; a calendar that is silent costs the others
/// nothing. The service is never made to work out when events recur: a thousand of them take it
/// seconds.
void talkToService(const std::optional<TimeWindow> &window,
                   std::chrono::steady_clock::time_point until);

} // namespace perchly
