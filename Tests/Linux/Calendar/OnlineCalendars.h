#pragma once

#include "TestFiles.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusVirtualObject>
#include <QRegularExpression>

namespace perchly {

/// A fake Evolution Data Server: its bus objects, on a separate connection, and its files.
class OnlineCalendars : public QDBusVirtualObject {
    Q_OBJECT
public:
    OnlineCalendars() {
        qDBusRegisterMetaType<Interfaces>();
        qDBusRegisterMetaType<Objects>();
        m_bus.registerVirtualObject(root, this, QDBusConnection::SubPath);
        m_bus.registerService(QStringLiteral("org.gnome.evolution.dataserver.Sources5"));
        m_bus.registerService(service);
    }
    ~OnlineCalendars() override { QDBusConnection::disconnectFromBus(m_bus.name()); }

    /// `name` is the UID; the lines follow it in the key file.
    void add(const char *uid, const QByteArray &lines, const QByteArray &events) {
        const QString name = QString::fromLatin1(uid);
        const QByteArray text = "[Data Source]\nDisplayName=" + QByteArray(uid) + '\n' + lines;
        writeFile(qEnvironmentVariable("XDG_CONFIG_HOME") +
                      QStringLiteral("/evolution/sources/%1.source").arg(name),
                  text);
        m_sources.insert(
            QDBusObjectPath(root + u'/' + name),
            {{QStringLiteral("org.gnome.evolution.dataserver.Source"),
              {{QStringLiteral("UID"), name}, {QStringLiteral("Data"), QString::fromUtf8(text)}}}});
        m_events.insert(name, QString::fromUtf8(events).section(u'\n', 1, -3));
    }

    QString introspect(const QString &) const override { return {}; }

    bool handleMessage(const QDBusMessage &message, const QDBusConnection &bus) override {
        ++questions;
        const QString uid = message.path().section(u'/', -1);
        const bool isFailing = uid == QLatin1StringView("web") || failure == Failure::Frozen;
        if (isFailing && failure == Failure::CalendarError) {
            return bus.send(message.createErrorReply(QDBusError::Failed, uid));
        }
        return (isFailing && failure != Failure::None) ||
               bus.send(message.createReply(answerTo(message, uid)));
    }

    int questions = 0;
    QStringList opened; ///< UIDs of the calendars opened
    /// The service or the calendar "web" does not answer, or that calendar fails.
    enum class Failure { None, Frozen, CalendarFrozen, CalendarError } failure = Failure::None;

private:
    using Interfaces = QMap<QString, QVariantMap>;
    using Objects = QMap<QDBusObjectPath, Interfaces>;

    QVariantList answerTo(const QDBusMessage &message, const QString &uid) {
        const QString argument = message.arguments().value(0).toString();
        if (message.member() == QLatin1StringView("GetManagedObjects")) {
            return {QVariant::fromValue(m_sources)};
        }
        if (message.member() == QLatin1StringView("OpenCalendar")) {
            opened.append(argument);
            return {root + u'/' + argument, service};
        }
        if (message.member() == QLatin1StringView("GetObjectList")) {
            return {m_query.match(argument).hasMatch() ? QStringList(m_events.value(uid))
                                                       : QStringList()};
        }
        return {QStringLiteral("BEGIN:VTIMEZONE\r\nTZID:%1\r\nBEGIN:STANDARD\r\n"
                               "DTSTART:19700101T000000\r\nTZOFFSETFROM:-2300\r\n"
                               "TZOFFSETTO:-2300\r\nEND:STANDARD\r\nEND:VTIMEZONE\r\n")
                    .arg(argument)};
    }

    const QString root = QStringLiteral("/org/gnome/evolution/dataserver");
    const QString service = QStringLiteral("org.gnome.evolution.dataserver.Calendar8");
    QDBusConnection m_bus =
        QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("online"));
    /// For a query in any other form, the real service finds nothing.
    const QRegularExpression m_query{QStringLiteral(
        R"(^\(or \(has-recurrences\?\) \(occur-in-time-range\? (\(make-time "\d{8}T\d{6}Z"\) ?){2}\)\)$)")};
    Objects m_sources;
    QMap<QString, QString> m_events; ///< by UID
};

} // namespace perchly
