#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>

namespace perchly {

/// What the desktop's calendar service keeps of a calendar, or of an account that has some.
struct CalendarSource {
    QString uid;
    QString parent; ///< the uid of the account or group that it belongs to
    QString name;   ///< for people
    QString kind;   ///< of the calendar; null for what is none
    QString file;   ///< where a local one keeps its events, if not in the usual place: path or URL
    bool isOnlineAccount = false; ///< whose calendars only the service knows
    bool isShown = true;          ///< neither switched off nor hidden by the person
};

/// Nothing for a text that is not such a source.
[[nodiscard]] std::optional<CalendarSource> parseSource(const QString &uid, const QByteArray &text);

/// Where the service keeps the sources that the person added, a file each.
[[nodiscard]] QString sourcesFolder();

/// The sources in that folder.
[[nodiscard]] QList<CalendarSource> storedSources();

/// A calendar that the service reads for everybody else.
struct ServiceCalendar {
    QString uid;
    QString name;
    QString account; ///< that it belongs to, for people
};

/// Those that are shown, with everything above them, and hold more than whole days; not the local
/// ones, which are read as the files that they are.
[[nodiscard]] QList<ServiceCalendar> serviceCalendars(const QList<CalendarSource> &sources);

/// Whether the person has told the desktop of an account or a calendar of that kind. Where not,
/// there is nothing to ask the service for.
[[nodiscard]] bool mayHaveServiceCalendars();

} // namespace perchly
