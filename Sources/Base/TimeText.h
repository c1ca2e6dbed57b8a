#pragma once

#include <QDate>
#include <QLocale>
#include <QString>
#include <QTime>

namespace perchly {

/// Hour and minute in the locale's short format, "9:41 AM" or "09:41".
[[nodiscard]] QString timeOfDay(const QTime &time, const QLocale &locale);
/// Full weekday, day and short month, the last two in the locale's order: "Tuesday, Nov 24" or
/// "Tuesday, 24 Nov", with the ordinal's period where the language has one.
[[nodiscard]] QString dayLine(const QDate &date, const QLocale &locale);
/// "November 2026".
[[nodiscard]] QString monthLine(const QDate &date, const QLocale &locale);

} // namespace perchly
