#include "RunningApplications.h"
#include "TestFiles.h"

#include <QProcess>

using namespace perchly;

class RunningApplicationsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() {
        installApplication(QStringLiteral("org.example.Tone"), "Exec=true\nName=Tone");
        installApplication(QStringLiteral("helper"), "Exec=true\nName=Helper\nNoDisplay=true");
        installApplication(QStringLiteral("player"), "Exec=true\nName=Player");
    }

    void namesAreLookedUp_data() {
        QTest::addColumn<QStringList>("names");
        QTest::addColumn<QString>("found");
        const auto list = [](const char *names) { return QString::fromLatin1(names).split(u' '); };
        QTest::newRow("an identifier") << list("org.example.Tone") << QStringLiteral("Tone");
        QTest::newRow("a program in capitals") << list("Player") << QStringLiteral("Player");
        QTest::newRow("the first that is one") << list("nobody player") << QStringLiteral("Player");
        QTest::newRow("one that is not shown") << list("helper") << QString();
    }

    void namesAreLookedUp() {
        QFETCH(QStringList, names);
        QFETCH(QString, found);
        const auto application =
            findRunningApplication(std::int32_t(QCoreApplication::applicationPid()), names);
        QCOMPARE(application ? application->name : QString(), found);
        QVERIFY(!application || QFile::exists(application->path));
    }

    void aLaunchedProcessIsKnownByItsEntry() {
        const QString path = desktopEntryPath(QStringLiteral("org.example.Tone"));
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
};

QTEST_GUILESS_MAIN(RunningApplicationsTest)
#include "RunningApplicationsTest.moc"
