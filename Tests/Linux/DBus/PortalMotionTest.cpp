#include "PortalMotion.h"

#include <QDBusContext>
#include <QDBusVariant>
#include <QMap>
#include <QSignalSpy>
#include <QTest>

#include <memory>

using namespace perchly;

namespace {

const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString gnome = QStringLiteral("org.gnome.desktop.interface enable-animations");
const QString kde = QStringLiteral("org.kde.kdeglobals.KDE AnimationDurationFactor");
const QString common = QStringLiteral("org.freedesktop.appearance reduced-motion");

using Settings = QMap<QString, QVariant>;

/// A settings portal on a connection of its own.
class Portal : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")
public:
    explicit Portal(const Settings &settings)
        : m_bus(QDBusConnection::connectToBus(QDBusConnection::SessionBus, service))
        , m_settings(settings) {
        m_bus.registerObject(QStringLiteral("/org/freedesktop/portal/desktop"), this,
                             QDBusConnection::ExportAllContents);
        m_bus.registerService(service);
    }
    ~Portal() override { QDBusConnection::disconnectFromBus(service); }

    void change(const QString &setting, const QVariant &value) {
        m_settings.insert(setting, value);
        Q_EMIT SettingChanged(setting.section(u' ', 0, 0), setting.section(u' ', 1),
                              QDBusVariant(value));
    }

public Q_SLOTS:
    QDBusVariant Read(const QString &group, const QString &key) {
        const auto found = m_settings.constFind(group + u' ' + key);
        if (found == m_settings.cend()) {
            sendErrorReply(QStringLiteral("org.freedesktop.portal.Error.NotFound"));
            return QDBusVariant(0);
        }
        return QDBusVariant(QVariant::fromValue(QDBusVariant(*found)));
    }

Q_SIGNALS:
    void SettingChanged(const QString &group, const QString &key, const QDBusVariant &value);

private:
    QDBusConnection m_bus;
    Settings m_settings;
};

} // namespace

class PortalMotionTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void readsWhatTheDesktopSays_data() {
        QTest::addColumn<Settings>("settings");
        QTest::addColumn<bool>("reduced");
        QTest::newRow("animations off in GNOME") << Settings{{gnome, false}} << true;
        QTest::newRow("no animation time in KDE, as a string")
            << Settings{{kde, QStringLiteral("0")}} << true;
        QTest::newRow("the common key") << Settings{{common, 1U}} << true;
        QTest::newRow("off in one of two") << Settings{{gnome, true}, {kde, 0}} << true;
        QTest::newRow("values of other types")
            << Settings{{gnome, QStringLiteral("false")}, {kde, QStringLiteral("off")}} << false;
    }

    void readsWhatTheDesktopSays() {
        QFETCH(const Settings, settings);
        QFETCH(const bool, reduced);
        const Portal portal(settings);
        const PortalMotion motion(QDBusConnection::sessionBus());
        QVERIFY(!motion.isReduced());
        const QSignalSpy changed(&motion, &Motion::changed);
        QTRY_COMPARE(motion.isReduced(), reduced);
        QTest::qWait(reduced ? 0 : 30);
        QCOMPARE(motion.isReduced(), reduced);
        QCOMPARE(changed.count(), reduced ? 1 : 0);
    }

    void followsChanges() {
        Portal portal({{gnome, true}});
        const PortalMotion motion(QDBusConnection::sessionBus());
        QTest::qWait(20);
        portal.change(gnome, false);
        QTRY_VERIFY(motion.isReduced());
        portal.change(kde, 0);
        portal.change(gnome, true);
        QTest::qWait(20);
        QVERIFY(motion.isReduced()); // KDE still says so
        portal.change(kde, 1);
        QTRY_VERIFY(!motion.isReduced());
    }

    void followsAPortalThatComesLaterOrAnew() {
        const PortalMotion motion(QDBusConnection::sessionBus());
        QTest::qWait(20);
        {
            const Portal portal({{gnome, false}});
            QTRY_VERIFY(motion.isReduced());
        }
        QTest::qWait(20);
        QVERIFY(motion.isReduced()); // no animations because a portal crashed
        const Portal portal({{gnome, true}});
        QTRY_VERIFY(!motion.isReduced());
    }
};

QTEST_GUILESS_MAIN(PortalMotionTest)
#include "PortalMotionTest.moc"
