#include "Meeting.h"

#include "MeetingLinks.h"
#include "TimeText.h"

namespace perchly {

QString Meeting::title() const {
    return event.title.isEmpty() ? QStringLiteral("Meeting") : event.title;
}

QDateTime Meeting::start() const {
    const auto sinceEpoch = std::chrono::floor<std::chrono::milliseconds>(event.start);
    return QDateTime::fromMSecsSinceEpoch(sinceEpoch.time_since_epoch().count());
}

QString Meeting::startText() const {
    const QLocale locale;
    const QDateTime time = start();
    return locale.dayName(time.date().dayOfWeek(), QLocale::ShortFormat) + u' ' +
           timeOfDay(time.time(), locale);
}

QString Meeting::texts() const {
    QStringList texts{event.url, event.location, event.notes};
    texts.removeAll(QString());
    return texts.join(u'\n');
}

QUrl Meeting::link() const {
    return findMeetingLink(texts());
}

} // namespace perchly
