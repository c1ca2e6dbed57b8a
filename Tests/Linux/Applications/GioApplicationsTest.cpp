#include "GioApplications.h"
#include "TestFiles.h"

#include <QDBusConnection>
#include <QMutex>
#include <QThread>

#include <array>
#include <fcntl.h>
#include <unistd.h>

using namespace perchly;

namespace {

/// An application that starts when it is activated over the bus.
class BusApplication : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")
public:
    int activations = 0;
    QString startupIdentifier;

public Q_SLOTS:
    void Activate(const QVariantMap &data) {
        ++activations;
        startupIdentifier = data.value(QStringLiteral("desktop-startup-id")).toString();
    }
};

} // namespace

class GioApplicationsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() {
        m_data = QDir(qEnvironmentVariable("XDG_DATA_HOME"));
        m_marker = m_data.filePath(QStringLiteral("marker"));
        const QString program = m_data.filePath(QStringLiteral("a program.sh"));
        writeProgram(program, "printf '%s %s' \"$DESKTOP_STARTUP_ID\" \"$*\" > '" +
                                  m_marker.toUtf8() + ".part'\nmv '" + m_marker.toUtf8() +
                                  ".part' '" + m_marker.toUtf8() + "'\n");
        const QByteArray quoted = '"' + program.toUtf8() + '"';
        installApplication(QStringLiteral("plain"), "Exec=" + quoted + " launched");
        installApplication(QStringLiteral("handler"),
                           "Exec=" + quoted +
                               " %u\nMimeType=x-scheme-handler/perchlytest;inode/directory;"
                               "application/x-desktop;");
        installApplication(QStringLiteral("fields"),
                           "Icon=picture\nExec=" + quoted + " %c 100%% %i %U %k");
        installApplication(QStringLiteral("terminal"), "Terminal=true\nExec=" + quoted + " 'in a'");
        installApplication(QStringLiteral("noticed"),
                           "StartupNotify=true\nExec=" + quoted + " launched");
        installApplication(QStringLiteral("broken"),
                           "StartupNotify=true\nPath=/nowhere/at/all\nExec=" + quoted);
        installApplication(QStringLiteral("org.perchly.TestApplication"),
                           "Exec=/bin/false\nDBusActivatable=true\nStartupNotify=true");
        writeFile(desktopEntryPath(QStringLiteral("garbage")),
                  QByteArray("\0\x01\xff not a desktop entry", 22));
        writeFile(m_data.filePath(QStringLiteral("applications/mimeapps.list")),
                  "[Default Applications]\nx-scheme-handler/perchlytest=handler.desktop\n"
                  "inode/directory=handler.desktop\napplication/x-desktop=handler.desktop\n");
    }

    void init() {
        m_errors.clear();
        QFile::remove(m_marker);
    }

    void launchesTheProgramOfADesktopEntry() {
        qputenv("DESKTOP_STARTUP_ID", "of-our-own-start");
        GioApplications applications;
        applications.open(desktopEntryPath(QStringLiteral("plain")), recorder());
        QCOMPARE(m_errors, QStringList());
        QTRY_COMPARE(marker(), QByteArray("launched"));
        QTRY_COMPARE(m_errors, QStringList{QString()});
        applications.open(desktopEntryPath(QStringLiteral("fields")));
        QTRY_COMPARE(marker(), QByteArray("X 100% --icon picture " +
                                          desktopEntryPath(QStringLiteral("fields")).toUtf8()));
    }

    void activatesAnApplicationOverTheBus() {
        BusApplication application;
        QDBusConnection bus = QDBusConnection::sessionBus();
        QVERIFY(bus.registerObject(QStringLiteral("/org/perchly/TestApplication"), &application,
                                   QDBusConnection::ExportAllSlots));
        QVERIFY(bus.registerService(QStringLiteral("org.perchly.TestApplication")));
        GioApplications applications(
            {.begin = [](const QByteArray &) { return QByteArray("start"); }});
        applications.open(desktopEntryPath(QStringLiteral("org.perchly.TestApplication")),
                          recorder());
        QTRY_COMPARE(m_errors, QStringList{QString()});
        QCOMPARE(application.activations, 1);
        QCOMPARE(application.startupIdentifier, QStringLiteral("start"));
    }

    void whatAProgramSaysIsNotSaidHere() {
        installApplication(QStringLiteral("loud"),
                           "Exec=sh -c \"echo out; echo err >&2; readlink /proc/self/fd/0 > '" +
                               m_marker.toUtf8() + "'\"");
        std::array<int, 2> ends{};
        QCOMPARE(pipe2(ends.data(), O_CLOEXEC), 0);
        const std::array kept{dup(STDOUT_FILENO), dup(STDERR_FILENO)};
        dup2(ends[1], STDOUT_FILENO);
        dup2(ends[1], STDERR_FILENO);
        close(ends[1]);
        GioApplications applications;
        applications.open(desktopEntryPath(QStringLiteral("loud")), recorder());
        const bool done = QTest::qWaitFor([this] { return !marker().isEmpty(); });
        dup2(kept[0], STDOUT_FILENO);
        dup2(kept[1], STDERR_FILENO);
        char said = 0;
        QCOMPARE(read(ends[0], &said, 1), 0); // nobody else holds it open, either
        QVERIFY(done);
        QCOMPARE(marker(), QByteArray("/dev/null"));
        close(ends[0]);
    }

    void givesATerminalToWhoeverWantsOne_data() {
        QTest::addColumn<QString>("terminal");
        QTest::addColumn<QByteArray>("expected");
        QTest::newRow("one that the system names")
            << QStringLiteral("x-terminal-emulator") << QByteArray("in a terminal");
        QTest::newRow("none") << QStringLiteral("nothing") << QByteArray();
    }

    void givesATerminalToWhoeverWantsOne() {
        QFETCH(const QString, terminal);
        QFETCH(const QByteArray, expected);
        QDir programs(m_data.filePath(QStringLiteral("programs")));
        QVERIFY(programs.removeRecursively());
        writeProgram(programs.filePath(terminal),
                     "PATH=/usr/bin:/bin\n[ \"$1\" = -e ] && shift && exec \"$@\" terminal\n");
        const QByteArray path = qgetenv("PATH");
        const auto reset = qScopeGuard([&] { qputenv("PATH", path); });
        qputenv("PATH", QFile::encodeName(programs.path()));
        GioApplications applications;
        applications.open(desktopEntryPath(QStringLiteral("terminal")), recorder());
        QTRY_COMPARE(m_errors.size(), 1);
        QCOMPARE(m_errors.first().isEmpty(), !expected.isEmpty());
        QTRY_COMPARE(marker(), expected);
    }

    void noticesAStart() {
        QMutex mutex;
        QByteArrayList begun;
        QByteArrayList withdrawn;
        GioApplications applications({.begin =
                                          [&](const QByteArray &name) {
                                              const QMutexLocker lock(&mutex);
                                              begun.append(name);
                                              return "start-" + QByteArray::number(begun.size());
                                          },
                                      .withdraw =
                                          [&](const QByteArray &identifier) {
                                              const QMutexLocker lock(&mutex);
                                              withdrawn.append(identifier);
                                          }});
        applications.open(desktopEntryPath(QStringLiteral("plain")), recorder());
        QTRY_COMPARE(marker(), QByteArray("launched"));
        QTRY_COMPARE(m_errors.size(), 1);
        applications.open(desktopEntryPath(QStringLiteral("noticed")), recorder());
        QTRY_COMPARE(marker(), QByteArray("start-1 launched"));
        QTRY_COMPARE(m_errors.size(), 2);
        applications.open(desktopEntryPath(QStringLiteral("broken")), recorder());
        QTRY_COMPARE(m_errors.size(), 3);
        QVERIFY(!m_errors.last().isEmpty());
        const QMutexLocker lock(&mutex);
        QCOMPARE(begun, QByteArrayList({"X", "X"}));
        QCOMPARE(withdrawn, QByteArrayList{"start-2"});
    }

    void saysWhyNothingWasOpened_data() {
        QTest::addColumn<QUrl>("url");
        QTest::addColumn<QString>("expected");
        const auto entry = [](const QString &name) {
            return QUrl::fromLocalFile(desktopEntryPath(name));
        };
        QTest::newRow("no such entry")
            << entry(QStringLiteral("missing")) << QStringLiteral("There is no application");
        QTest::newRow("a file that is no desktop entry")
            << entry(QStringLiteral("garbage")) << QStringLiteral("is not an application");
        QTest::newRow("a scheme that no program opens")
            << QUrl(QStringLiteral("no-such-scheme:x")) << QString();
        QTest::newRow("a file that is not there")
            << QUrl(QStringLiteral("file:///nowhere/at/all")) << QStringLiteral("There is nothing");
        QTest::newRow("an empty link") << QUrl() << QStringLiteral("is not a link");
    }

    void saysWhyNothingWasOpened() {
        QFETCH(const QUrl, url);
        QFETCH(const QString, expected);
        GioApplications applications;
        if (url.path().endsWith(QStringLiteral(".desktop"))) {
            applications.open(url.toLocalFile(), recorder());
        } else {
            applications.openUrl(url, recorder());
        }
        QTRY_COMPARE(m_errors.size(), 1);
        QVERIFY(!m_errors.first().isEmpty());
        QVERIFY2(m_errors.first().contains(expected), qPrintable(m_errors.first()));
    }

    void opensAnythingButApplicationsWithItsDefaultProgram() {
        GioApplications applications;
        applications.openUrl(QUrl(QStringLiteral("perchlytest:a%20b?c=%2F")), recorder());
        QTRY_COMPARE(marker(), QByteArray("perchlytest:a%20b?c=%2F"));

        QFile::remove(m_marker);
        const QString folder = m_data.filePath(QStringLiteral("a folder"));
        QVERIFY(QDir().mkpath(folder));
        applications.open(folder, recorder());
        QTRY_VERIFY2(marker().endsWith("a folder"), marker().constData());

        QFile::remove(m_marker);
        const QString download = m_data.filePath(QStringLiteral("download.desktop"));
        QVERIFY(QFile::copy(desktopEntryPath(QStringLiteral("plain")), download));
        applications.open(download, recorder());
        QTRY_VERIFY(!marker().isEmpty());
        QVERIFY2(marker().endsWith("download.desktop"), marker().constData());

        QFile::remove(m_marker);
        applications.launch(download, recorder());
        QTRY_COMPARE(marker(), QByteArray("launched"));
        QTRY_COMPARE(m_errors, QStringList({QString(), QString(), QString(), QString()}));
    }

    void callsNothingBackOnceItIsDestroyed() {
        for (int round = 0; round < 20; ++round) {
            GioApplications applications;
            applications.open(desktopEntryPath(QStringLiteral("missing")), recorder());
            applications.openUrl(QUrl(QStringLiteral("no-such-scheme:x")), recorder());
        }
        QTest::qWait(50);
        QCOMPARE(m_errors, QStringList());
    }

private:
    Applications::Completion recorder() {
        return [this](const QString &error) {
            QCOMPARE(QThread::currentThread(), thread());
            m_errors.append(error);
        };
    }
    [[nodiscard]] QByteArray marker() const { return readFile(m_marker).trimmed(); }

    QDir m_data;
    QString m_marker;
    QStringList m_errors;
};

QTEST_GUILESS_MAIN(GioApplicationsTest)
#include "GioApplicationsTest.moc"
