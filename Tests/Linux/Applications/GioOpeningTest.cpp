#include "GioApplications.h"
#include "GioFileServices.h"
#include "TestFiles.h"

#include <QDBusConnection>
#include <QMutex>
#include <QThread>

using namespace perchly;

namespace {

class FileManager : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.FileManager1")
public:
    QStringList shown;

public Q_SLOTS:
    void ShowItems(const QStringList &uris, const QString &) { shown.append(uris); }
};

} // namespace

/// Launches real programs, which record how they were started.
class GioOpeningTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() {
        qputenv("XDG_DATA_DIRS", "/nowhere/at/all");
        for (const char *program : {"a program", "xdg-email"}) {
            writeProgram(m_data.filePath(QStringLiteral("bin/") + QString::fromLatin1(program)),
                         "echo \"$(basename \"$0\") $DESKTOP_STARTUP_ID $*\" > '" +
                             m_mark.toUtf8() + "'\n");
        }
        qputenv("PATH",
                QFile::encodeName(m_data.filePath(QStringLiteral("bin"))) + ":/usr/bin:/bin");
        const auto install = [](const char *name, const QByteArray &lines) {
            installApplication(QString::fromLatin1(name),
                               "Exec=\"a program\" %u " + QByteArray(name) + "\n" + lines);
        };
        install("plain", "MimeType=text/plain;inode/directory;x-scheme-handler/perchlytest;");
        install("second", "Name=Second\nMimeType=text/plain;application/x-desktop;");
        install("hidden", "NoDisplay=true\nMimeType=text/plain;");
        install("terminal", "Terminal=true");
        install("noticed", "StartupNotify=true");
        install("broken", "StartupNotify=true\nPath=/nowhere/at/all");
        writeFile(desktopEntryPath(QStringLiteral("garbage")), "not a desktop entry");
        writeFile(m_data.filePath(QStringLiteral("applications/mimeinfo.cache")),
                  "[MIME Cache]\ntext/plain=hidden.desktop;plain.desktop;second.desktop;\n"
                  "inode/directory=plain.desktop;\nx-scheme-handler/perchlytest=plain.desktop;\n"
                  "application/x-desktop=second.desktop;\n");
        chooseApplication("text/plain", "second");
        writeFile(m_file.toLocalFile(), "text");
    }

    void init() {
        m_errors.clear();
        QFile::remove(m_mark);
    }

    void entriesAndLinksAreOpened() {
        qputenv("DESKTOP_STARTUP_ID", "of-our-own-start");
        const auto reset = qScopeGuard([] { qunsetenv("DESKTOP_STARTUP_ID"); });
        GioApplications applications;
        applications.open(desktopEntryPath(QStringLiteral("plain")), recorder());
        QCOMPARE(m_errors, QStringList());
        QTRY_COMPARE(mark(), QStringLiteral("a program plain"));
        applications.openUrl(QUrl(QStringLiteral("perchlytest:a%20b?c=%2F")), recorder());
        QTRY_COMPARE(mark(), QStringLiteral("a program perchlytest:a%20b?c=%2F plain"));
        const QString download = m_data.filePath(QStringLiteral("download.desktop"));
        QVERIFY(QFile::copy(desktopEntryPath(QStringLiteral("plain")), download));
        applications.open(download, recorder()); // must not be run
        QTRY_COMPARE(mark(), QStringLiteral("a program %1 second").arg(download));
        applications.launch(download, recorder());
        QTRY_COMPARE(mark(), QStringLiteral("a program plain"));
        QTRY_COMPARE(m_errors, QStringList(4, QString()));
    }

    void systemTerminalEmulatorIsUsed() {
        const QByteArray path = qgetenv("PATH");
        const auto reset = qScopeGuard([&] { qputenv("PATH", path); });
        const QDir programs(m_data.filePath(QStringLiteral("bin")));
        writeProgram(programs.filePath(QStringLiteral("x-terminal-emulator")),
                     "[ \"$1\" = -e ] && shift && PATH=" + path + " exec \"$@\" inside\n");
        qputenv("PATH", QFile::encodeName(programs.path()));
        GioApplications applications;
        applications.open(desktopEntryPath(QStringLiteral("terminal")), recorder());
        QTRY_COMPARE(mark(), QStringLiteral("a program terminal inside"));
    }

    void failedStartWithdrawsItsNotice() {
        QMutex mutex;
        QByteArrayList withdrawn;
        GioApplications applications({.begin = [](const QByteArray &) { return "start"; },
                                      .withdraw =
                                          [&](const QByteArray &id) {
                                              const QMutexLocker lock(&mutex);
                                              withdrawn.append(id);
                                          }});
        applications.open(desktopEntryPath(QStringLiteral("noticed")), recorder());
        QTRY_COMPARE(mark(), QStringLiteral("a program start noticed"));
        GioApplications withTokens({.askToken = [] { return [] { return "token"; }; }});
        withTokens.open(desktopEntryPath(QStringLiteral("noticed")));
        QTRY_COMPARE(mark(), QStringLiteral("a program token noticed"));
        applications.open(desktopEntryPath(QStringLiteral("broken")), recorder());
        QTRY_COMPARE(m_errors.size(), 2);
        QVERIFY(!m_errors.last().isEmpty());
        const QMutexLocker lock(&mutex);
        QCOMPARE(withdrawn, QByteArrayList({"start"}));
    }

    void failuresReportAnError() {
        GioApplications applications;
        GioFileServices services;
        const auto lastError = [this] { return m_errors.isEmpty() ? QString() : m_errors.last(); };
        applications.open(desktopEntryPath(QStringLiteral("missing")), recorder());
        QTRY_VERIFY(lastError() == QStringLiteral("The application is no longer installed."));
        applications.open(desktopEntryPath(QStringLiteral("garbage")), recorder());
        QTRY_VERIFY(lastError().startsWith(QStringLiteral("It is not an application")));
        applications.openUrl(QUrl(QStringLiteral("no-such-scheme:x")), recorder());
        QTRY_COMPARE(lastError(),
                     QStringLiteral("No program is set up for “no-such-scheme:” links."));
        services.share(QUrl(QStringLiteral("file:///gone")), QStringLiteral("mail"), recorder());
        QTRY_COMPARE(lastError(), QStringLiteral("There is nothing at “/gone”."));
    }

    void fileIsRevealed() {
        GioFileServices services;
        services.reveal(m_file, recorder());
        QTRY_COMPARE(mark(),
                     QStringLiteral("a program ") + m_data.path() + QStringLiteral(" plain"));
        QDBusConnection bus = QDBusConnection::sessionBus();
        FileManager manager;
        QVERIFY(bus.registerObject(QStringLiteral("/org/freedesktop/FileManager1"), &manager,
                                   QDBusConnection::ExportAllSlots));
        QVERIFY(bus.registerService(QStringLiteral("org.freedesktop.FileManager1")));
        services.reveal(m_file, recorder());
        QTRY_COMPARE(m_errors, QStringList({QString(), QString()}));
        QCOMPARE(manager.shown, QStringList(m_file.toString(QUrl::FullyEncoded)));
    }

    void fileIsShared() {
        GioFileServices services;
        QList<FileServices::ShareTarget> targets;
        services.findShareTargets(m_file, [&](const auto &found) { targets = found; });
        QTRY_COMPARE(targets.size(), 3);
        const QStringList started{
            QStringLiteral("a program ") + m_file.toLocalFile() + QStringLiteral(" second"),
            QStringLiteral("a program ") + m_file.toLocalFile() + QStringLiteral(" plain"),
            QStringLiteral("xdg-email --attach ") + m_file.toLocalFile()};
        for (int number = 0; number < 3; ++number) {
            services.share(m_file, targets[number].id, recorder());
            QTRY_COMPARE(mark(), started[number]);
        }
        QCOMPARE(targets[2].name, QStringLiteral("E-mail"));
    }

private:
    std::function<void(const QString &)> recorder() {
        return [this](const QString &error) {
            QCOMPARE(QThread::currentThread(), thread());
            m_errors.append(error);
        };
    }
    [[nodiscard]] QString mark() const { return QString::fromUtf8(readFile(m_mark)).simplified(); }

    const QDir m_data{qEnvironmentVariable("XDG_DATA_HOME")};
    const QString m_mark = m_data.filePath(QStringLiteral("mark"));
    const QUrl m_file = QUrl::fromLocalFile(m_data.filePath(QStringLiteral("100% ä.txt")));
    QStringList m_errors;
};

QTEST_GUILESS_MAIN(GioOpeningTest)
#include "GioOpeningTest.moc"
