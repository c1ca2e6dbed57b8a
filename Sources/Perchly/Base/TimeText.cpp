#include "TimeText.h"

#include <QRegularExpression>

namespace perchly {

QString timeOfDay(const QTime &time, const QLocale &locale) {
    // Some locales' short form has seconds, or names the time zone.
    static const QRegularExpression seconds(QStringLiteral("[:.]?s+|\\s*t+"));
    // Others have a letter for the part of the day that the toolkit would print as it stands.
    static const QRegularExpression dayPart(QStringLiteral("[Bb]+"));
    QString format = locale.timeFormat(QLocale::ShortFormat);
    format.remove(seconds).replace(dayPart, QStringLiteral("AP"));
    return locale.toString(time, format.trimmed());
}

} // namespace perchly
