#include "CardText.h"

#include "TimeText.h"

#include <QStringList>

namespace perchly {

QString CardText::mediaLine(const QString &artist, const QString &source, bool playing) {
    QStringList parts{artist, source,
                      playing ? QStringLiteral("Playing") : QStringLiteral("Paused")};
    parts.removeAll(QString());
    return parts.join(QStringLiteral(" · "));
}

QString CardText::plannedTime(int minutes) {
    return QStringLiteral("%1:00").arg(minutes);
}

QString CardText::timeOfDay(const QTime &time, const QLocale &locale) {
    return perchly::timeOfDay(time, locale);
}

QString CardText::dayLine(const QDate &date, const QLocale &locale) {
    const QString order = locale.dateFormat(QLocale::ShortFormat);
    const bool monthFirst =
        order.indexOf(QLatin1Char('M')) < order.indexOf(QLatin1Char('d'), 0, Qt::CaseInsensitive);
    return locale.toString(date, monthFirst ? QStringLiteral("dddd, MMM d")
                                            : QStringLiteral("dddd, d MMM"));
}

QString CardText::monthLine(const QDate &date, const QLocale &locale) {
    return locale.standaloneMonthName(date.month()) + QLatin1Char(' ') +
           QString::number(date.year());
}

} // namespace perchly
