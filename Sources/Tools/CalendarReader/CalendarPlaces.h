#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace perchly {

/// One calendar of the person's: a folder of events, or a file of many.
struct CalendarPlace {
    QString name; ///< for people
    QString path;
    QStringList files; ///< absolute, in a fixed order
};

struct CalendarPlaces {
    QList<CalendarPlace> calendars;
    QStringList folders; ///< where calendars come, go and change; they need not exist
};

/// Finds the calendars that programs keep as files: folders that are synchronised with a server
/// (where the programs that do it say, and where they are by custom), and the desktops' own local
/// calendars. No calendar is opened.
[[nodiscard]] CalendarPlaces findCalendars();

} // namespace perchly
