#include "BusNotifications.h"

#include <QTest>

using namespace perchly;

namespace {

/// A notification server on a separate connection.
class Server : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")
public:
    explicit Server(const QStringList &abilities)
        : m_abilities(abilities) {
        QDBusConnection bus = m_bus.connection();
        bus.registerObject(QStringLiteral("/org/freedesktop/Notifications"), this,
                           QDBusConnection::ExportAllContents);
        bus.registerService(QStringLiteral("org.freedesktop.Notifications"));
    }

    QStringList calls;

public Q_SLOTS:
    QStringList GetCapabilities() { return m_abilities; }
    uint Notify(const QString &name, uint replaced, const QString &icon, const QString &summary,
                const QString &body, const QStringList &actions, const QVariantMap &hints, int) {
        calls << QStringList{name,
                             QString::number(replaced),
                             icon,
                             summary,
                             body,
                             actions.join(u','),
                             hints.keys().join(u',')}
                     .join(u'|');
        return replaced != 0 ? replaced : ++m_last;
    }
    void CloseNotification(uint id) { calls << QStringLiteral("|%1|||close").arg(id); }

Q_SIGNALS:
    void ActionInvoked(uint id, const QString &key);
    void NotificationClosed(uint id, uint reason);

private:
    SessionBus m_bus{QStringLiteral("server")};
    QStringList m_abilities;
    uint m_last = 6;
};

} // namespace

class BusNotificationsTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init() { m_ran.clear(); }

    void sendsWhatTheServerCanShow() {
        BusNotifications host(std::make_shared<SessionBus>(QStringLiteral("host")));
        {
            Server server(
                {QStringLiteral("body"), QStringLiteral("body-markup"), QStringLiteral("actions")});
            host.show(content("a", "1 < 2"));
            QTRY_COMPARE(server.calls,
                         QStringList(QStringLiteral("Perchly|0|org.perchly.Perchly|Title|1 &lt; 2|"
                                                    "default,,0,Do|desktop-entry")));
        }
        Server plain({});
        host.show(content("a", "1 < 2")); // replaces none, since the other server is gone
        QTRY_COMPARE(plain.calls, QStringList(QStringLiteral(
                                      "Perchly|0|org.perchly.Perchly|Title|1 < 2||desktop-entry")));
    }

    void sameTagReplacesAndCloses() {
        BusNotifications host(std::make_shared<SessionBus>(QStringLiteral("host")));
        Server server({});
        const auto log = [&server] {
            QStringList all;
            for (const QString &call : std::as_const(server.calls)) {
                all << call.section(u'|', 1, 1) + u' ' + call.section(u'|', 4, 4);
            }
            return all.join(u'|');
        };
        host.show(content("a", "1"));
        host.show(content("b", "2"));
        host.show(content("a", "3")); // before the server has answered
        QTRY_COMPARE(log(), QStringLiteral("0 3|0 2"));
        host.show(content("a", "4"));
        QTRY_COMPARE(log(), QStringLiteral("0 3|0 2|7 4"));
        Q_EMIT server.ActionInvoked(7, QStringLiteral("0"));
        Q_EMIT server.ActionInvoked(8, QStringLiteral("default"));
        Q_EMIT server.ActionInvoked(9, QStringLiteral("default"));
        QTRY_COMPARE(m_ran, QStringList({QStringLiteral("did 4"), QStringLiteral("opened 2")}));
        server.calls.clear();
        host.close(QStringLiteral("a"));
        Q_EMIT server.NotificationClosed(8, 2);
        host.show(content("a", "5"));
        host.close(QStringLiteral("a"));
        host.show(content("b", "6"));
        QTRY_COMPARE(log(), QStringLiteral("7 close|0 6"));
    }

private:
    Notification content(const char *tag, const char *body) {
        const QString text = QString::fromLatin1(body);
        return {.tag = QString::fromLatin1(tag),
                .title = QStringLiteral("Title"),
                .body = text,
                .open = [this, text] { m_ran << QStringLiteral("opened ") + text; },
                .actions = {{QStringLiteral("Do"),
                             [this, text] { m_ran << QStringLiteral("did ") + text; }}}};
    }

    QStringList m_ran;
};

QTEST_GUILESS_MAIN(BusNotificationsTest)
#include "BusNotificationsTest.moc"
