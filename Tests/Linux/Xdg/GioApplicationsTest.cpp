#include "GioApplications.h"
#include "TestFiles.h"

#include <QDBusConnection>
#include <QThread>

using namespace perchly;

namespace {

/// An application that starts when it is activated over the bus.
class BusApplication : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")
public:
    int activations = 0;

public Q_SLOTS:
    void Activate(const QVariantMap &) { ++activations; }
};

} // namespace

class GioApplicationsTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() {
        m_data = QDir(qEnvironmentVariable("XDG_DATA_HOME"));
        const QString program = m_data.filePath(QStringLiteral("a program.sh"));
        const QByteArray marker = m_data.filePath(QStringLiteral("marker")).toUtf8();
        writeFile(program, "#!/bin/sh\nprintf '%s %s' \"$DESKTOP_STARTUP_ID\" \"$*\" > '" + marker +
                               ".part'\nmv '" + marker + ".part' '" + marker + "'\n");
        QFile::setPermissions(program, QFile::ReadOwner | QFile::ExeOwner);
        const QByteArray executed = "Exec=\"" + program.toUtf8() + '"';
        installApplication(QStringLiteral("plain"), executed + " launched");
        installApplication(QStringLiteral("handler"),
                           executed +
                               " %u\nMimeType=x-scheme-handler/perchlytest;inode/directory;");
        installApplication(QStringLiteral("uninstalled"), "Exec=/nowhere/at/all");
        installApplication(QStringLiteral("org.perchly.TestApplication"),
                           "Exec=/bin/false\nDBusActivatable=true");
        writeFile(desktopEntryPath(QStringLiteral("garbage")), QByteArray("\0\1 no entry", 11));
        chooseApplication("x-scheme-handler/perchlytest=handler.desktop\ninode/directory",
                          "handler");
    }

    void init() {
        m_errors.clear();
        m_data.remove(QStringLiteral("marker"));
    }

    void launchesTheProgramOfADesktopEntry() {
        qputenv("DESKTOP_STARTUP_ID", "of-our-own-start");
        GioApplications applications;
        applications.open(desktopEntryPath(QStringLiteral("plain")), recorder());
        QCOMPARE(m_errors, QStringList());
        QTRY_COMPARE(marker(), QByteArray("launched"));
        QTRY_COMPARE(m_errors, QStringList{QString()});
    }

    void activatesAnApplicationOverTheBus() {
        BusApplication application;
        QDBusConnection bus = QDBusConnection::sessionBus();
        QVERIFY(bus.registerObject(QStringLiteral("/org/perchly/TestApplication"), &application,
                                   QDBusConnection::ExportAllSlots));
        QVERIFY(bus.registerService(QStringLiteral("org.perchly.TestApplication")));
        GioApplications applications;
        applications.open(desktopEntryPath(QStringLiteral("org.perchly.TestApplication")),
                          recorder());
        QTRY_COMPARE(m_errors, QStringList{QString()});
        QCOMPARE(application.activations, 1);
    }

    void opensLinksAndFoldersWithTheirDefaultProgram() {
        GioApplications applications;
        applications.openUrl(QUrl(QStringLiteral("perchlytest:a%20b?c=%2F")), recorder());
        QTRY_COMPARE(marker(), QByteArray("perchlytest:a%20b?c=%2F"));
        m_data.mkpath(QStringLiteral("a folder"));
        applications.open(m_data.filePath(QStringLiteral("a folder")), recorder());
        QTRY_VERIFY2(marker().endsWith("a folder"), marker().constData());
        QTRY_COMPARE(m_errors, QStringList({QString(), QString()}));
    }

    void saysWhyNothingWasOpened_data() {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("expected");
        const QString none = QStringLiteral("There is no application");
        const auto entry = [](const char *name) {
            return desktopEntryPath(QString::fromUtf8(name));
        };
        QTest::newRow("no such entry") << entry("missing") << none;
        QTest::newRow("a relative path") << QStringLiteral("plain.desktop") << none;
        QTest::newRow("a file that is no desktop entry")
            << entry("garbage") << QStringLiteral("is not an application");
        QTest::newRow("an entry whose program is not installed")
            << entry("uninstalled") << QStringLiteral("is not installed");
    }

    void saysWhyNothingWasOpened() {
        QFETCH(const QString, path);
        QFETCH(const QString, expected);
        GioApplications applications;
        applications.open(path, recorder());
        QTRY_COMPARE(m_errors.size(), 1);
        QVERIFY2(m_errors.first().contains(expected), qPrintable(m_errors.first()));
        applications.openUrl(QUrl(QStringLiteral("no-such-scheme:x")), recorder());
        applications.openUrl(QUrl(), recorder());
        QTRY_COMPARE(m_errors.size(), 3);
        QVERIFY(!m_errors.contains(QString()));
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
    [[nodiscard]] QByteArray marker() const {
        return readFile(m_data.filePath(QStringLiteral("marker"))).trimmed();
    }

    QDir m_data;
    QStringList m_errors;
};

QTEST_GUILESS_MAIN(GioApplicationsTest)
#include "GioApplicationsTest.moc"
