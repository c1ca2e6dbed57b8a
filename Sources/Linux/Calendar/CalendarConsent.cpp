#include "CalendarConsent.h"

#include "WholeFile.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStandardPaths>

#include <utility>

namespace perchly {

namespace {

const QString key = QStringLiteral("readCalendars");

} // namespace

CalendarConsent::CalendarConsent(QString path, std::function<void()> changed)
    : m_path(std::move(path))
    , m_watch([this] { read(); }, ".json") {
    read();
    m_changed = std::move(changed);
}

QString CalendarConsent::defaultPath() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/perchly/permissions/calendars.json");
}

QString CalendarConsent::remember(CalendarAccess access) {
    const QJsonObject object{{key, access == CalendarAccess::Granted}};
    QString error =
        wholefile::replace(m_path, QJsonDocument(object).toJson(), wholefile::Durability::System);
    if (error.isEmpty()) {
        m_stored = access;
    }
    set(access);
    return error;
}

void CalendarConsent::set(CalendarAccess access) {
    if (access != m_access) {
        m_access = access;
        if (m_changed) {
            m_changed();
        }
    }
}

void CalendarConsent::read() {
    // Anew each time: until the folder is there, what is watched is the way to it.
    m_watch.beginRound();
    m_watch.add(QFile::encodeName(QFileInfo(m_path).path()).toStdString());
    m_watch.endRound();
    const QJsonValue answer =
        QJsonDocument::fromJson(wholefile::read(m_path).bytes).object().value(key);
    const CalendarAccess stored = !answer.isBool()  ? CalendarAccess::NotAsked
                                  : answer.toBool() ? CalendarAccess::Granted
                                                    : CalendarAccess::Denied;
    // An answer that could not be stored holds all the same, until the file says something new.
    if (std::exchange(m_stored, stored) != stored) {
        set(stored);
    }
}

} // namespace perchly
