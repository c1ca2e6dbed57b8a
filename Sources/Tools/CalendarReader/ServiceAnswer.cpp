#include "ServiceAnswer.h"

#include <QDataStream>
#include <QIODevice>

namespace perchly {

ServiceAnswer ServiceAnswer::parse(const QByteArray &bytes) {
    ServiceAnswer answer;
    QDataStream stream(bytes);
    qint64 count = 0;
    stream >> count;
    for (qint64 number = 0; number < count && stream.status() == QDataStream::Ok; ++number) {
        ServiceCalendar calendar;
        stream >> calendar.uid >> calendar.name >> calendar.account;
        answer.calendars.push_back({calendar, std::nullopt});
    }
    answer.saidWhich = stream.status() == QDataStream::Ok;
    if (!answer.saidWhich) {
        answer.calendars.clear();
    }
    while (answer.saidWhich && !stream.atEnd()) {
        qint64 number = -1;
        QByteArray text;
        stream >> number >> text;
        if (stream.status() != QDataStream::Ok || number < 0 || number >= count) {
            break;
        }
        answer.calendars[std::size_t(number)].text = text;
    }
    return answer;
}

QByteArray ServiceAnswer::which(const QList<ServiceCalendar> &calendars) {
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << qint64(calendars.size());
    for (const ServiceCalendar &calendar : calendars) {
        stream << calendar.uid << calendar.name << calendar.account;
    }
    return bytes;
}

QByteArray ServiceAnswer::textOf(qsizetype number, const QByteArray &text) {
    QByteArray bytes;
    QDataStream(&bytes, QIODevice::WriteOnly) << qint64(number) << text;
    return bytes;
}

} // namespace perchly
