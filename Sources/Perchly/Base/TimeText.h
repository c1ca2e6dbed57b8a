#pragma once

#include <QLocale>
#include <QString>
#include <QTime>

namespace perchly {

/// Hour and minute as the locale writes them in short, with the marker of the day's half where it
/// has one.
[[nodiscard]] QString timeOfDay(const QTime &time, const QLocale &locale);

} // namespace perchly
