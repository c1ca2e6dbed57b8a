#include "TimeText.h"

#include <QRegularExpression>

namespace perchly {

QString timeOfDay(const QTime &time, const QLocale &locale) {
    // Some locales' short formats have seconds or a time zone.
    static const QRegularExpression seconds(QStringLiteral("[:.]?s+|\\s*t+"));
    // Others have a letter for the part of the day, which Qt would print unchanged.
    static const QRegularExpression dayPart(QStringLiteral("[Bb]+"));
    QString format = locale.timeFormat(QLocale::ShortFormat);
    format.remove(seconds).replace(dayPart, QStringLiteral("AP"));
    return locale.toString(time, format.trimmed());
}

QString dayLine(const QDate &date, const QLocale &locale) {
    const QString order = locale.dateFormat(QLocale::ShortFormat);
    const bool monthFirst = order.indexOf(u'M') < order.indexOf(u'd', 0, Qt::CaseInsensitive);
    const bool hasPeriod = locale.dateFormat(QLocale::LongFormat).contains(QStringLiteral("d. M"));
    return locale.toString(date, monthFirst  ? QStringLiteral("dddd, MMM d")
                                 : hasPeriod ? QStringLiteral("dddd, d. MMM")
                                             : QStringLiteral("dddd, d MMM"));
}

QString monthLine(const QDate &date, const QLocale &locale) {
    return locale.standaloneMonthName(date.month()) + u' ' + QString::number(date.year());
}

} // namespace perchly
