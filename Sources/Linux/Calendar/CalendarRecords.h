#pragma once

#include <QDataStream>
#include <QList>
#include <QStringList>

/// The calendar companion's output, a QDataStream. For "list", a CalendarList. For "events",
/// `true` before each event (identifier, title, start, end, all-day, URL, location, notes; times in
/// seconds since 1970; a missing text is null, a long one cut); then `false`, and whether the
/// calendar was undamaged.
namespace perchly {

struct FoundCalendar {
    QString name;
    QString place;  ///< shown to the user: a path, or an account
    QString source; ///< for "events": a path, or "service:" and a UID
};

struct CalendarList {
    QList<FoundCalendar> calendars;
    QStringList folders; ///< to watch for changes; they need not exist
    /// Those of Evolution Data Server, which also writes there when it is read.
    QStringList serviceFolders;
    bool isServiceMute = false; ///< it did not say which calendars it has
};

inline QDataStream &operator<<(QDataStream &stream, const FoundCalendar &calendar) {
    return stream << calendar.name << calendar.place << calendar.source;
}
inline QDataStream &operator>>(QDataStream &stream, FoundCalendar &calendar) {
    return stream >> calendar.name >> calendar.place >> calendar.source;
}

inline QDataStream &operator<<(QDataStream &stream, const CalendarList &list) {
    return stream << list.calendars << list.folders << list.serviceFolders << list.isServiceMute;
}
inline QDataStream &operator>>(QDataStream &stream, CalendarList &list) {
    return stream >> list.calendars >> list.folders >> list.serviceFolders >> list.isServiceMute;
}

} // namespace perchly
