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

/// Unlike Qt's operator, reserves no memory for a count that may be wrong.
template <class Item>
void readList(QDataStream &stream, QList<Item> &list) {
    quint32 count = 0;
    stream >> count;
    for (quint32 i = 0; i < count && stream.status() == QDataStream::Ok; ++i) {
        stream >> list.emplaceBack();
    }
}

inline QDataStream &operator<<(QDataStream &stream, const CalendarList &list) {
    return stream << list.calendars << list.folders << list.serviceFolders << list.isServiceMute;
}
inline QDataStream &operator>>(QDataStream &stream, CalendarList &list) {
    readList(stream, list.calendars);
    readList(stream, list.folders);
    readList(stream, list.serviceFolders);
    return stream >> list.isServiceMute;
}

} // namespace perchly
