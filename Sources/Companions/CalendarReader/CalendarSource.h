#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>

namespace perchly {

/// A calendar of Evolution Data Server, or an account with calendars, as its key file describes it.
struct CalendarSource {
    QString uid;
    QString parent; ///< UID of the account or group
    QString name;
    QString kind; ///< the backend; empty if it is not a calendar
    QString file; ///< path or URL of a local calendar outside the usual folder
    bool isOnlineAccount = false;
    bool isShown = true; ///< neither disabled nor hidden

    /// Whether to ask the service: local calendars are files; birthdays and weather are all-day.
    [[nodiscard]] bool isOfService() const {
        return !kind.isEmpty() && kind != u"local" && kind != u"contacts" && kind != u"weather";
    }
};

using CalendarSources = QMap<QString, CalendarSource>; // by UID

/// Adds the source that the text describes; ignores any other text.
void addSource(CalendarSources &sources, const QString &uid, const QByteArray &text);

/// The folder with one file for each source that the user added.
[[nodiscard]] QString sourcesFolder();
[[nodiscard]] CalendarSources storedSources();

} // namespace perchly
