#include "PortalMotion.h"

#include <QDBusContext>
#include <QDBusVariant>
#include <QSignalSpy>
#include <QTest>

using namespace perchly;

namespace {

const QString gnome = QStringLiteral("org.gnome.desktop.interface enable-animations");
const QString kde = QStringLiteral("org.kde.kdeglobals.KDE AnimationDurationFactor");
const QString common = QStringLiteral("org.freedesktop.appearance reduced-motion");

/// A settings portal on a separate connection.
class Portal : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")
public:
    explicit Portal(const QVariantMap &settings)
        : m_settings(settings) {
        QDBusConnection bus = m_bus.connection();
        bus.registerObject(QStringLiteral("/org/freedesktop/portal/desktop"), this,
                           QDBusConnection::ExportAllContents);
        bus.registerService(QStringLiteral("org.freedesktop.portal.Desktop"));
    }

    void change(const QString &setting, const QVariant &value) {
        m_settings.insert(setting, value);
        Q_EMIT SettingChanged(setting.section(u' ', 0, 0), setting.section(u' ', 1),
                              QDBusVariant(value));
    }

public Q_SLOTS:
    QDBusVariant Read(const QString &group, const QString &key) {
        if (!m_settings.contains(group + u' ' + key)) {
            sendErrorReply(QStringLiteral("org.freedesktop.portal.Error.NotFound"));
        }
        return QDBusVariant(QVariant::fromValue(QDBusVariant(m_settings[group + u' ' + key])));
    }

Q_SIGNALS:
    void SettingChanged(const QString &group, const QString &key, const QDBusVariant &value);

private:
    SessionBus m_bus{QStringLiteral("portal")};
    QVariantMap m_settings;
};

} // namespace

class PortalMotionTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void followsSettingsAndPortalRestarts() {
        PortalMotion motion(std::make_shared<SessionBus>(QStringLiteral("motion")));
        const QSignalSpy changed(&motion, &Motion::changed);
        {
            Portal portal({{gnome, true}});
            QTest::qWait(50);
            portal.change(gnome, QStringLiteral("off"));
            portal.change(kde, QStringLiteral("0.25"));
            portal.change(common, 0U);
            QTest::qWait(50);
            QVERIFY(!motion.isReduced());
            portal.change(gnome, false);
            QTRY_VERIFY(motion.isReduced());
            portal.change(kde, QStringLiteral("0"));
            portal.change(gnome, true);
            QTest::qWait(50);
            QVERIFY(motion.isReduced()); // KDE still reduces motion
        }
        QTest::qWait(50);
        QVERIFY(motion.isReduced()); // a crashed portal must not turn animations on
        Portal portal({{kde, 1}});
        QTRY_VERIFY(!motion.isReduced());
        portal.change(common, 1U);
        QTRY_VERIFY(motion.isReduced());
        QCOMPARE(changed.count(), 3);
    }
};

QTEST_GUILESS_MAIN(PortalMotionTest)
#include "PortalMotionTest.moc"
