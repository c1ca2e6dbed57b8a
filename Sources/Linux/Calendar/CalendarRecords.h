#pragma once

#include <QDataStream>
#include <QList>
#include <QStringList>

/// The calendar companion's output, a QDataStream. For "list": a CalendarList. For "events": `true`
/// before each event (identifier, title, start, end, all-day, URL, location, notes; times in
/// seconds since 1970; a missing text is null, a long one truncated); then `false`, and whether the
/// calendar was undamaged.
namespace perchly {

struct FoundCalendar {
    QString name;
    QString place;  ///< shown to the user: a path, or an account
    QString source; ///< argument of "events": a path, or "service:" and a UID
};

struct CalendarList {
    QList<FoundCalendar> calendars;
    QStringList folders; ///< to watch for changes; may not exist
    /// Evolution Data Server's folders, where it also writes when it is read.
    QStringList serviceFolders;
    bool isServiceMute = false; ///< the service did not list its calendars
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
