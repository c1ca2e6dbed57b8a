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
    void readsWhatTheDesktopSays() {
        const auto isReduced = [](const Settings &settings, int milliseconds = 5000) {
            const Portal portal(settings);
            const PortalMotion motion(QDBusConnection::sessionBus());
            return QTest::qWaitFor([&] { return motion.isReduced(); }, milliseconds);
        };
        QVERIFY(isReduced({{gnome, false}}));
        QVERIFY(isReduced({{gnome, true}, {kde, QStringLiteral("0")}}));
        QVERIFY(isReduced({{common, 1U}}));
        QVERIFY(!isReduced({{gnome, true}, {kde, QStringLiteral("0.25")}, {common, 0U}}, 100));
        QVERIFY2(!isReduced({{gnome, QStringLiteral("false")}, {kde, QStringLiteral("off")}}, 100),
                 "values of other types");
    }

    void followsChanges() {
        Portal portal({{gnome, true}});
        const PortalMotion motion(QDBusConnection::sessionBus());
        const QSignalSpy changed(&motion, &Motion::changed);
        QTest::qWait(20);
        portal.change(gnome, false);
        QTRY_VERIFY(motion.isReduced());
        portal.change(kde, 0);
        portal.change(gnome, true);
        QTest::qWait(20);
        QVERIFY(motion.isReduced()); // KDE still says so
        portal.change(kde, 1);
        QTRY_VERIFY(!motion.isReduced());
        QCOMPARE(changed.count(), 2);
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
