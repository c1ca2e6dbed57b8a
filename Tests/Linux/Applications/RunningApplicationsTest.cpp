#include "RunningApplications.h"
#include "DesktopUnit.h"
#include "TestFiles.h"

#include <QDir>
#include <QProcess>

#include <sys/stat.h>

using namespace perchly;

namespace {

/// Where the kernel's control groups are; empty when they are nowhere.
QString controlGroups() {
    QFile mounts(QStringLiteral("/proc/self/mounts"));
    if (mounts.open(QIODevice::ReadOnly)) {
        for (const QByteArray &mount : mounts.readAll().split('\n')) {
            if (const auto fields = mount.split(' '); fields.value(2) == "cgroup2") {
                return QFile::decodeName(fields[1]);
            }
        }
    }
    return {};
}

bool moveProcess(qint64 pid, const QString &group) {
    QFile file(group + QStringLiteral("/cgroup.procs"));
    return file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) &&
           file.write(QByteArray::number(pid)) > 0;
}

} // namespace

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
        const auto byNames = findRunningApplication(std::nullopt, names);
        QCOMPARE(byNames ? byNames->name : QString(), found);
    }

    void launchedProcessIsKnownByInstalledEntry_data() {
        QTest::addColumn<QString>("path");
        QTest::addColumn<bool>("isFound");
        const QString installed = desktopEntryPath(QStringLiteral("org.example.Tone"));
        QTest::newRow("installed") << installed << true;
        const QString copy = QDir::tempPath() + QStringLiteral("/copy.desktop");
        QVERIFY(QFile::copy(installed, copy));
        QTest::newRow("outside the data folders") << copy << false;
        const QString pipe = desktopEntryPath(QStringLiteral("pipe"));
        QCOMPARE(mkfifo(QFile::encodeName(pipe), 0600), 0);
        QTest::newRow("a pipe, which would block") << pipe << false;
    }

    void launchedProcessIsKnownByInstalledEntry() {
        QFETCH(QString, path);
        QFETCH(bool, isFound);
        QProcess process;
        process.start(
            QStringLiteral("sh"),
            {QStringLiteral("-c"), QStringLiteral("export GIO_LAUNCHED_DESKTOP_FILE='%1' "
                                                  "GIO_LAUNCHED_DESKTOP_FILE_PID=$$; exec sleep 60")
                                       .arg(path)});
        QVERIFY(process.waitForStarted());
        const auto pid = std::int32_t(process.processId());
        // Before the shell's exec, the variables are not there yet.
        QTRY_VERIFY(readFile(QStringLiteral("/proc/%1/comm").arg(pid)).startsWith("sleep"));
        const auto found = findRunningApplication(pid, {});
        QCOMPARE(found ? found->path : QString(), isFound ? path : QString());
        process.kill();
        process.waitForFinished();
        QVERIFY(!findRunningApplication(pid, {}));
    }

    void unitsAreNamedByTheirEntries_data() {
        QTest::addColumn<QByteArray>("groups");
        QTest::addColumn<QString>("name");
        const QByteArray slice("0::/user.slice/user-1000.slice/user@1000.service/app.slice/");
        const QString tone = QStringLiteral("org.example.Tone");
        QTest::newRow("a scope with a launcher") << slice + "app-gnome-org.example.Tone-12.scope\n"
                                                 << tone;
        QTest::newRow("a service") << slice + "app-org.example.Tone.service\n" << tone;
        QTest::newRow("one of several") << slice + "app-kde-org.example.Tone@a1b2.service\n"
                                        << tone;
        QTest::newRow("a name with dashes") << slice + "app-some\\x2dtone\\x2dplayer-12.scope\n"
                                            << QStringLiteral("some-tone-player");
        QTest::newRow("beside older groups")
            << "4:memory:/\n" + slice + "app-org.example.Tone-12.scope\n"
            << tone;
        QTest::newRow("a group within a unit") << slice + "app-org.example.Tone-12.scope/inner\n"
                                               << QString();
        QTest::newRow("no application's") << slice + "pipewire.service\n" << QString();
        QTest::newRow("a login") << QByteArray("0::/user.slice/user-0.slice/session-1.scope\n")
                                 << QString();
        QTest::newRow("a process that has ended") << QByteArray() << QString();
    }

    void unitsAreNamedByTheirEntries() {
        QFETCH(QByteArray, groups);
        QFETCH(QString, name);
        QCOMPARE(desktopUnitName(groups, "0::/elsewhere\n"), name);
        QCOMPARE(desktopUnitName(groups, groups), QString());
    }

    void whatStaysInOurUnitIsAnotherProgram() {
        const QString all = controlGroups();
        const QString unit = all + QStringLiteral("/app-org.example.Tone-%1.scope")
                                       .arg(QCoreApplication::applicationPid());
        QFile own(QStringLiteral("/proc/self/cgroup"));
        QVERIFY(own.open(QIODevice::ReadOnly));
        const QString before =
            all + QString::fromUtf8(own.readAll().trimmed().split('\n').constLast().mid(3));
        QProcess process;
        const auto clean = qScopeGuard([&] {
            process.kill();
            process.waitForFinished();
            moveProcess(QCoreApplication::applicationPid(), before);
            QDir().rmdir(unit);
        });
        process.start(QStringLiteral("sleep"), {QStringLiteral("60")});
        QVERIFY(process.waitForStarted());
        const auto pid = std::int32_t(process.processId());
        QVERIFY(!findRunningApplication(pid, {}));
        if (all.isEmpty() || !QDir().mkdir(unit)) {
            return; // only who manages the groups may make more
        }
        QVERIFY(moveProcess(pid, unit));
        const auto found = findRunningApplication(pid, {});
        QVERIFY(found);
        QCOMPARE(found->name, QStringLiteral("Tone"));
        QVERIFY(moveProcess(QCoreApplication::applicationPid(), unit));
        QVERIFY(!findRunningApplication(pid, {}));
    }
};

QTEST_GUILESS_MAIN(RunningApplicationsTest)
#include "RunningApplicationsTest.moc"
