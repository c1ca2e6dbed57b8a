#pragma once

#include "ServiceQuestion.h"
#include "TimeWindow.h"

namespace perchly {

/// Writes the events of all calendars in the window to standard output (see ReaderOutput.h): first
/// those of files, then those of the service that was asked. False if nobody takes them.
[[nodiscard]] bool readEvents(const TimeWindow &window, ServiceQuestion &service);

} // namespace perchly
