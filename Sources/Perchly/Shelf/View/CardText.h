#pragma once

#include <QDateTime>
#include <QLocale>
#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace perchly {

/// The lines on the cards that are put together from several facts.
class CardText : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
public:
    using QObject::QObject;

    /// Who plays, where, and whether: what is empty is left out.
    Q_INVOKABLE [[nodiscard]] static QString mediaLine(const QString &artist, const QString &source,
                                                       bool playing);
    /// The length of a session that has not begun, "50:00".
    Q_INVOKABLE [[nodiscard]] static QString plannedTime(int minutes);

    /// Hour and minute as people of that locale write them, "9:41 AM" or "09:41".
    [[nodiscard]] static QString timeOfDay(const QTime &time, const QLocale &locale);
    /// The weekday in full, the day and the short month, in the locale's order of the two:
    /// "Tuesday, Nov 24" or "Tuesday, 24 Nov".
    [[nodiscard]] static QString dayLine(const QDate &date, const QLocale &locale);
    /// "November 2026".
    [[nodiscard]] static QString monthLine(const QDate &date, const QLocale &locale);
};

} // namespace perchly
