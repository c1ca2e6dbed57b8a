#pragma once

#include "Calendar.h"
#include "CalendarPlaces.h"

namespace perchly {

/// Adds the calendars that only Evolution Data Server can read, without their events. Does not call
/// the service, which would start it, unless the user has an online account or such a calendar.
void addServiceCalendars(CalendarList &list);

/// Adds the events of the service's calendar with that UID. False when the service fails.
[[nodiscard]] bool addServiceCalendar(const QString &uid, Calendar &calendar);

} // namespace perchly
