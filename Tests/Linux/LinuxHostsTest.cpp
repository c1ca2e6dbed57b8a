#include "LinuxHosts.h"

#include <QApplication>
#include <QFile>
#include <QProcess>
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
    void nullHostsTouchNothing();
    void hostsAreCompleteWithoutADisplay();
    void whatIsMissingIsToldOnce();
};

void LinuxHostsTest::nullHostsTouchNothing() {
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

void LinuxHostsTest::hostsAreCompleteWithoutADisplay() {
    const Hosts hosts = makeHosts();
    QVERIFY(isComplete(hosts));
    hosts.preferences->setNumber(QStringLiteral("key"), 1);
    QVERIFY(QFile::exists(file()));
    hosts.statusItem->show({}, QStringLiteral("Perchly"), {});
    QVERIFY(hosts.displays->list().isEmpty());
    QVERIFY(makeSingleInstance()->claim());
}

void LinuxHostsTest::whatIsMissingIsToldOnce() {
    QProcess process;
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"),
                       QStringLiteral("unix:path=/nowhere/at/all"));
    process.setProcessEnvironment(environment);
    process.start(QCoreApplication::applicationFilePath(),
                  {QStringLiteral("hostsAreCompleteWithoutADisplay")});
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitCode(), 0);
    const QByteArray told = process.readAllStandardError();
    QCOMPARE(told.count("perchly: no session bus"), 1);
    QCOMPARE(told.count("perchly: no X display"), 1);
}

QTEST_MAIN(LinuxHostsTest)
#include "LinuxHostsTest.moc"
