#include "PortalHotKeys.h"

#include <QDBusContext>
#include <QDBusMessage>
#include <QSignalSpy>
#include <QTest>

using namespace perchly;
using namespace Qt::StringLiterals;

namespace {

constexpr uint missing = 8;
constexpr uint crash = 9;

/// A portal that answers each request with this response, or crashes.
class Portal : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.GlobalShortcuts")
public:
    explicit Portal(uint response)
        : m_response(response) {
        QDBusConnection bus = m_bus.connection();
        bus.registerObject(u"/org/freedesktop/portal/desktop"_s, this,
                           QDBusConnection::ExportAllContents);
        bus.registerService(u"org.freedesktop.portal.Desktop"_s);
    }

    QString bound;

public Q_SLOTS:
    QDBusObjectPath CreateSession(const QVariantMap &options) {
        return respond(options, {{u"session_handle"_s, u"/session"_s}});
    }
    QDBusObjectPath BindShortcuts(const QDBusObjectPath &session,
                                  const QList<perchly::PortalShortcut> &shortcuts, const QString &,
                                  const QVariantMap &options) {
        for (const auto &[identifier, values] : shortcuts)
            bound += identifier + values[u"description"_s].toString() +
                     values[u"preferred_trigger"_s].toString() + u' ';
        bound += session.path();
        return respond(options, {{u"shortcuts"_s, bound}});
    }

Q_SIGNALS:
    void Activated(const QDBusObjectPath &session, const QString &identifier, qulonglong time,
                   const QVariantMap &options);

private:
    QDBusObjectPath respond(const QVariantMap &options, const QVariantMap &results) {
        const QString sender = message().service().mid(1).replace(u'.', u'_');
        const QString path = u"/org/freedesktop/portal/desktop/request/"_s + sender + u'/' +
                             options[u"handle_token"_s].toString();
        QDBusMessage answer =
            QDBusMessage::createSignal(path, u"org.freedesktop.portal.Request"_s, u"Response"_s);
        answer << m_response << results;
        if (m_response == crash)
            m_bus.connection().unregisterService(u"org.freedesktop.portal.Desktop"_s);
        else
            m_bus.connection().send(answer);
        return QDBusObjectPath(path);
    }

    SessionBus m_bus{u"portal"_s};
    uint m_response;
};

} // namespace

class PortalHotKeysTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void chordsWorkUntilReleased() {
        Portal portal(0);
        PortalHotKeys keys(std::make_shared<SessionBus>(u"keys"_s), {u"toggle"_s, u"search"_s});
        QVERIFY(keys.registerChord(0, Qt::CTRL | Qt::ALT | Qt::Key_Space));
        QVERIFY(keys.registerChord(1, Qt::META | Qt::Key_F3));
        QTRY_VERIFY(portal.bound.endsWith(u"/session"_s));
        QVERIFY(portal.bound.contains(u"0toggleCTRL+ALT+space "_s));
        QVERIFY(portal.bound.contains(u"1searchLOGO+F3 "_s));
        const QSignalSpy pressed(&keys, &HotKeys::pressed);
        keys.releaseChord(0);
        for (const auto &[session, key] :
             {std::pair("/session", "0"), {"/other", "1"}, {"/session", "1"}})
            Q_EMIT portal.Activated(QDBusObjectPath(QLatin1StringView(session)),
                                    QLatin1StringView(key), 0, {});
        QTRY_COMPARE(pressed.size(), 1);
        QCOMPARE(pressed[0][0].toInt(), 1);
        QVERIFY(keys.isSupported());
    }

    void failingPortalIsReported_data() {
        QTest::addColumn<uint>("response");
        QTest::newRow("missing") << missing;
        QTest::newRow("denies") << 1U;
        QTest::newRow("crashes") << crash;
    }

    void failingPortalIsReported() {
        QFETCH(const uint, response);
        std::optional<Portal> portal;
        if (response != missing)
            portal.emplace(response);
        PortalHotKeys keys(std::make_shared<SessionBus>(u"keys"_s), {u"toggle"_s});
        const QSignalSpy changed(&keys, &HotKeys::keyboardChanged);
        const QKeyCombination chord = Qt::CTRL | Qt::ALT | Qt::Key_Space;
        static_cast<void>(keys.registerChord(0, chord));
        QTRY_COMPARE(changed.size(), 1);
        QVERIFY(!keys.registerChord(0, chord));
        QVERIFY(!keys.isSupported());
        QTest::qWait(50);
        QCOMPARE(changed.size(), 1);
    }
};

QTEST_GUILESS_MAIN(PortalHotKeysTest)
#include "PortalHotKeysTest.moc"
