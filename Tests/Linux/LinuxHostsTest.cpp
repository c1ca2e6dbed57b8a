#include "LinuxHosts.h"

#include <QApplication>
#include <QDir>
#include <QTest>

using namespace perchly;

class LinuxHostsTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void nullHostsTouchNothing() {
        qputenv("PERCHLY_HOSTS", "null");
        const auto resetVariable = qScopeGuard([] { qunsetenv("PERCHLY_HOSTS"); });
        const Hosts hosts = makeHosts(nullptr);
        QVERIFY(hosts.clock && hosts.preferences && hosts.displays && hosts.panel &&
                hosts.hotKeys && hosts.statusItem && hosts.applications && hosts.motion &&
                hosts.alertSound && hosts.scriptHost && hosts.catalog && hosts.openPanel &&
                hosts.loginItem && hosts.audio);
        hosts.preferences->setNumber(QStringLiteral("key"), 1);
        QVERIFY(QDir(qEnvironmentVariable("XDG_CONFIG_HOME")).isEmpty());
        QVERIFY(!makeSingleInstance(nullptr)->claim({}));
        QVERIFY(!makeSingleInstance(nullptr)->claim({}));
    }
};

QTEST_MAIN(LinuxHostsTest)
#include "LinuxHostsTest.moc"
