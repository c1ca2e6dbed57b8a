#include "LinuxHosts.h"

#include <QApplication>
#include <QFile>
#include <QTest>

using namespace perchly;

namespace {

QString file() {
    return qEnvironmentVariable("XDG_CONFIG_HOME") + QStringLiteral("/perchly/preferences.json");
}

bool isComplete(const Hosts &hosts) {
    return hosts.clock && hosts.preferences && hosts.displays && hosts.pointer && hosts.keys &&
           hosts.panel && hosts.hotKeys && hosts.statusItem && hosts.applications && hosts.motion &&
           hosts.alertSound && hosts.scriptHost && hosts.catalog && hosts.openPanel &&
           hosts.loginItem && hosts.playerNotifications && hosts.musicPlayer && hosts.audio;
}

} // namespace

class LinuxHostsTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void nullHostsTouchNothing() {
        qputenv("PERCHLY_HOSTS", "null");
        const auto resetVariable = qScopeGuard([] { qunsetenv("PERCHLY_HOSTS"); });
        const Hosts hosts = makeHosts();
        QVERIFY(isComplete(hosts));
        hosts.preferences->setNumber(QStringLiteral("key"), 1);
        QCOMPARE(hosts.preferences->wholeNumber(QStringLiteral("key")), 1);
        QVERIFY(!QFile::exists(file()));
        QVERIFY(hosts.displays->list().isEmpty());
        QVERIFY(!hosts.hotKeys->registerChord(1, {Qt::Key_Space, Modifier::Control}));
        QString error;
        hosts.applications->open(QStringLiteral("/a.desktop"),
                                 [&](const QString &why) { error = why; });
        QTRY_VERIFY(error.contains(QStringLiteral("/a.desktop")));
        bool failed = false;
        const Task task =
            hosts.scriptHost->run({}, std::nullopt, [&](const auto &output) { failed = !output; });
        QTRY_VERIFY(failed);
        QCOMPARE(hosts.playerNotifications->presence(), PlayerPresence::Unknown);
        QVERIFY(makeSingleInstance()->claim());
        QVERIFY(makeSingleInstance()->claim());
    }

    void hostsAreCompleteWithoutADisplay() {
        const Hosts hosts = makeHosts();
        QVERIFY(isComplete(hosts));
        hosts.preferences->setNumber(QStringLiteral("key"), 1);
        QVERIFY(QFile::exists(file()));
        hosts.statusItem->show({}, QStringLiteral("Perchly"), {});
        QVERIFY(hosts.displays->list().isEmpty());
        QVERIFY(makeSingleInstance()->claim());
    }
};

QTEST_MAIN(LinuxHostsTest)
#include "LinuxHostsTest.moc"
