#pragma once

#include "TestFiles.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusVirtualObject>
#include <QRegularExpression>

namespace perchly {

/// The desktop's calendar service on a connection of its own, as far as readers see of it, and what
/// it keeps in the person's configuration.
class OnlineCalendars : public QDBusVirtualObject {
    Q_OBJECT
public:
    enum class Failure {
        None,
        IsMute,
        SaysOtherThings,
        HasMuteCalendar,
        HasBrokenCalendar,
        HasGarbage,
        HasTooMuch
    };

    OnlineCalendars() {
        qDBusRegisterMetaType<Interfaces>();
        qDBusRegisterMetaType<Objects>();
        m_bus.registerVirtualObject(root, this, QDBusConnection::SubPath);
        m_bus.registerService(QStringLiteral("org.gnome.evolution.dataserver.Sources5"));
        m_bus.registerService(calendars);
    }
    ~OnlineCalendars() override { QDBusConnection::disconnectFromBus(m_bus.name()); }

    static QString folder() {
        return qEnvironmentVariable("XDG_CONFIG_HOME") + QStringLiteral("/evolution/sources");
    }

    /// The lines follow the name, which is the uid.
    void add(const char *uid, const QByteArray &lines, const QByteArray &events) {
        const QString name = QString::fromLatin1(uid);
        const QByteArray text = "[Data Source]\nDisplayName=" + QByteArray(uid) + '\n' + lines;
        writeFile(folder() + u'/' + name + QStringLiteral(".source"), text);
        m_sources.insert(
            QDBusObjectPath(root + u'/' + name),
            {{QStringLiteral("org.gnome.evolution.dataserver.Source"),
              {{QStringLiteral("UID"), name}, {QStringLiteral("Data"), QString::fromUtf8(text)}}}});
        m_events.insert(name, QString::fromUtf8(events)
                                  .remove(QStringLiteral("BEGIN:VCALENDAR\r\n"))
                                  .remove(QStringLiteral("END:VCALENDAR\r\n")));
    }

    void fail(Failure failure, const char *uid) {
        m_failure = failure;
        m_failing = QString::fromLatin1(uid);
    }

    QString introspect(const QString &) const override { return {}; }

    bool handleMessage(const QDBusMessage &message, const QDBusConnection &bus) override {
        ++questions;
        const QString uid = message.path().section(u'/', -1);
        if (m_failure == Failure::IsMute ||
            (m_failure == Failure::HasMuteCalendar && uid == m_failing)) {
            return true;
        }
        const bool isStrange = message.member() == QLatin1StringView("GetObjectList") &&
                               !m_query.match(message.arguments().value(0).toString()).hasMatch();
        if (isStrange || (m_failure == Failure::HasBrokenCalendar && uid == m_failing)) {
            return bus.send(message.createErrorReply(QDBusError::Failed, QStringLiteral("No")));
        }
        return bus.send(message.createReply(answerTo(message, uid)));
    }

    int questions = 0;
    QStringList opened; ///< calendars

private:
    using Interfaces = QMap<QString, QVariantMap>;
    using Objects = QMap<QDBusObjectPath, Interfaces>;

    QVariantList answerTo(const QDBusMessage &message, const QString &uid) {
        const QString argument = message.arguments().value(0).toString();
        if (message.member() == QLatin1StringView("GetManagedObjects")) {
            return {m_failure == Failure::SaysOtherThings
                        ? QVariant(QVariantMap{{uid, QVariantList{1, uid}}})
                        : QVariant::fromValue(m_sources)};
        }
        if (message.member() == QLatin1StringView("OpenCalendar")) {
            opened.append(argument);
            return {root + u'/' + argument, calendars};
        }
        if (message.member() == QLatin1StringView("GetObjectList")) {
            const bool fails = uid == m_failing;
            return {fails && m_failure == Failure::HasGarbage
                        ? QStringList({QStringLiteral("BEGIN:VEVENT\r\nEND"), QString(9, u'\1')})
                    : fails && m_failure == Failure::HasTooMuch
                        ? QStringList(100, QString(1'000'000, u'x'))
                        : QStringList(m_events.value(uid))};
        }
        if (message.member() == QLatin1StringView("GetTimezone")) {
            return {QStringLiteral("BEGIN:VTIMEZONE\r\nTZID:%1\r\nBEGIN:STANDARD\r\n"
                                   "DTSTART:19700101T000000\r\nTZOFFSETFROM:-2300\r\n"
                                   "TZOFFSETTO:-2300\r\nEND:STANDARD\r\nEND:VTIMEZONE\r\n")
                        .arg(argument)};
        }
        return {QStringList()};
    }

    const QString root = QStringLiteral("/org/gnome/evolution/dataserver");
    const QString calendars = QStringLiteral("org.gnome.evolution.dataserver.Calendar8");
    QDBusConnection m_bus =
        QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("online"));
    /// An argument too many, or none of the real service's words, and it finds nothing.
    const QRegularExpression m_query{QStringLiteral(
        R"(^\(or \(has-recurrences\?\) \(occur-in-time-range\? (\(make-time "\d{8}T\d{6}Z"\) ?){2}\)\)$)")};
    Objects m_sources;
    QMap<QString, QString> m_events; ///< by the calendar's uid
    Failure m_failure = Failure::None;
    QString m_failing; ///< calendar
};

} // namespace perchly
