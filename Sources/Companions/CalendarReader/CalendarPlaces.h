#pragma once

#include "CalendarRecords.h"

namespace perchly {

/// Finds the calendars that programs keep as files, without opening them: those that khal,
/// vdirsyncer, KDE and GNOME are configured with, and those in the usual folders.
[[nodiscard]] CalendarList findCalendars();

} // namespace perchly
