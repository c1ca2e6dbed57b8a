#include "RunningApplications.h"
#include "TestFiles.h"

#include <QDir>
#include <QProcess>

using namespace perchly;

class RunningApplicationsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() {
        installApplication(QStringLiteral("org.example.Tone"), "Exec=true\nName=Tone");
        installApplication(QStringLiteral("player"), "Exec=true\nName=Player");
    }

    void applicationIsFoundByClientName() {
        const auto found = [](std::optional<std::int32_t> pid, const char *names) {
            const auto application =
                findRunningApplication(pid, QString::fromLatin1(names).split(u' '));
            return application ? application->name : QString();
        };
        const std::optional own(std::int32_t(QCoreApplication::applicationPid()));
        QCOMPARE(found(own, "org.example.Tone"), QStringLiteral("Tone"));
        QCOMPARE(found(std::nullopt, "Player"), QStringLiteral("Player"));
        QCOMPARE(found(own, "nobody player org.example.Tone"), QStringLiteral("Player"));
    }

    void applicationIsFoundByItsLaunchEntry() {
        const QString installed = desktopEntryPath(QStringLiteral("org.example.Tone"));
        const QString copy = QDir::tempPath() + QStringLiteral("/copy.desktop");
        QVERIFY(QFile::copy(installed, copy));
        for (const QString &path : {installed, copy}) {
            QProcess process;
            process.start(QStringLiteral("sh"),
                          {QStringLiteral("-c"),
                           QStringLiteral("export GIO_LAUNCHED_DESKTOP_FILE='%1' "
                                          "GIO_LAUNCHED_DESKTOP_FILE_PID=$$; exec sleep 60")
                               .arg(path)});
            QVERIFY(process.waitForStarted());
            const auto pid = std::int32_t(process.processId());
            // The variables appear only after the shell's exec.
            QTRY_VERIFY(readFile(QStringLiteral("/proc/%1/comm").arg(pid)).startsWith("sleep"));
            const auto found = findRunningApplication(pid, {});
            QCOMPARE(found ? found->path : QString(), path == installed ? path : QString());
            process.kill();
            process.waitForFinished();
        }
    }

    void systemdUnitContainsTheEntryName() {
        const auto name = [](const QByteArray &unit) {
            return desktopUnitName("4:memory:/\n0::/user.slice/app.slice/" + unit + "\n", "0::/");
        };
        const QString tone = QStringLiteral("org.example.Tone");
        QCOMPARE(name("app-gnome-org.example.Tone-12.scope"), tone);
        QCOMPARE(name("app-org.example.Tone.service"), tone);
        QCOMPARE(name("app-kde-org.example.Tone@a1b2.service"), tone);
        QCOMPARE(name("app-some\\x2dtone-12.scope"), QStringLiteral("some-tone"));
        QCOMPARE(name("app-org.example.Tone-12.scope/inner"), QString());
        const QByteArray own("0::/app-org.example.Tone.service\n");
        QCOMPARE(desktopUnitName(own, own), QString());
    }
};

QTEST_GUILESS_MAIN(RunningApplicationsTest)
#include "RunningApplicationsTest.moc"
