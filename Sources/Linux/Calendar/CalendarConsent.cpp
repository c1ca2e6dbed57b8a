#include "CalendarConsent.h"

#include "WholeFile.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStandardPaths>

#include <utility>

namespace perchly {

using namespace Qt::StringLiterals;

CalendarConsent::CalendarConsent(QString path, std::function<void()> changed)
    : m_path(std::move(path))
    , m_watch([this] { read(); }, ".json") {
    read();
    m_changed = std::move(changed);
}

QString CalendarConsent::defaultPath() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           u"/perchly/permissions/calendars.json"_s;
}

QString CalendarConsent::remember(CalendarAccess access) {
    const QJsonObject object{{u"readCalendars"_s, access == CalendarAccess::Granted}};
    QString error =
        wholefile::replace(m_path, QJsonDocument(object).toJson(), wholefile::Durability::System);
    // An answer that could not be stored holds until the file changes.
    m_stored = error.isEmpty() ? access : m_stored;
    if (std::exchange(m_access, access) != access) {
        m_changed();
    }
    return error;
}

void CalendarConsent::read() {
    // Repeated, since the watch is on the parent folder while the folder does not exist.
    m_watch.beginRound();
    m_watch.add(QFile::encodeName(QFileInfo(m_path).path()).toStdString());
    m_watch.endRound();
    const QJsonValue answer =
        QJsonDocument::fromJson(wholefile::read(m_path).bytes).object().value(u"readCalendars"_s);
    const CalendarAccess stored = !answer.isBool()  ? CalendarAccess::NotAsked
                                  : answer.toBool() ? CalendarAccess::Granted
                                                    : CalendarAccess::Denied;
    if (std::exchange(m_stored, stored) != stored && std::exchange(m_access, stored) != stored) {
        m_changed();
    }
}

} // namespace perchly
