#include "RunningApplications.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTest>

using namespace perchly;

namespace {

QString folder() {
    return qEnvironmentVariable("XDG_DATA_HOME") + QStringLiteral("/applications");
}

void install(const QString &name, const QByteArray &lines) {
    QDir().mkpath(folder());
    QFile file(folder() + u'/' + name + QStringLiteral(".desktop"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("[Desktop Entry]\nType=Application\nExec=true\n" + lines);
}

} // namespace

class RunningApplicationsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void namesAreLookedUp_data();
    void namesAreLookedUp();
    void aLaunchedProcessIsKnownByItsEntry();
};

void RunningApplicationsTest::initTestCase() {
    install(QStringLiteral("org.example.Tone"), "Name=Tone\nName[de]=Klang\n");
    install(QStringLiteral("helper"), "Name=Helper\nNoDisplay=true\n");
    install(QStringLiteral("player"), "Name=Player\n");
}

void RunningApplicationsTest::namesAreLookedUp_data() {
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<QString>("found");
    const auto list = [](const char *names) { return QString::fromLatin1(names).split(u' '); };
    QTest::newRow("an identifier") << list("org.example.Tone") << QStringLiteral("Tone");
    QTest::newRow("a program in capitals") << list("Player") << QStringLiteral("Player");
    QTest::newRow("the first that is one") << list("nobody player") << QStringLiteral("Player");
    QTest::newRow("one that is not shown") << list("helper") << QString();
    QTest::newRow("a path") << QStringList{folder() + QStringLiteral("/player")} << QString();
    QTest::newRow("nothing") << QStringList{QString()} << QString();
}

void RunningApplicationsTest::namesAreLookedUp() {
    QFETCH(QStringList, names);
    QFETCH(QString, found);
    const auto application =
        findRunningApplication(std::int32_t(QCoreApplication::applicationPid()), names);
    QCOMPARE(application ? application->name : QString(), found);
    QVERIFY(!application || QFile::exists(application->path));
}

void RunningApplicationsTest::aLaunchedProcessIsKnownByItsEntry() {
    const QString path = folder() + QStringLiteral("/org.example.Tone.desktop");
    QProcess process;
    process.start(
        QStringLiteral("sh"),
        {QStringLiteral("-c"), QStringLiteral("export GIO_LAUNCHED_DESKTOP_FILE='%1' "
                                              "GIO_LAUNCHED_DESKTOP_FILE_PID=$$; exec sleep 60")
                                   .arg(path)});
    QVERIFY(process.waitForStarted());
    const auto pid = std::int32_t(process.processId());
    QTRY_VERIFY(findRunningApplication(pid, {}));
    QCOMPARE(findRunningApplication(pid, {})->path, path);
    process.kill();
    process.waitForFinished();
    QVERIFY(!findRunningApplication(pid, {}));
}

QTEST_GUILESS_MAIN(RunningApplicationsTest)
#include "RunningApplicationsTest.moc"
