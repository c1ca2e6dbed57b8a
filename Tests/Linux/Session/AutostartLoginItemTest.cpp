#include "AutostartLoginItem.h"
#include "TestFiles.h"

#include <gio/gdesktopappinfo.h>

using namespace perchly;

using Outcome = LoginItem::Outcome;

class AutostartLoginItemTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        qputenv("XDG_CONFIG_DIRS", "/nowhere/at/all");
        QVERIFY(QDir(m_config).removeRecursively());
        m_program = makeProgram(QStringLiteral("perchly"));
    }

    /// GIO launches the entry.
    void programAtAnyPathIsStarted() {
        AutostartLoginItem item(
            makeProgram(QStringLiteral("$HOME `x` %U 100% \\s\\ my \"own\" 'perchly'")));
        QVERIFY(!item.isEnabled());
        const auto result = item.registerProgram();
        QVERIFY2(result.outcome == Outcome::Registered, qPrintable(result.message));
        QVERIFY(item.isEnabled());
        auto *entry = g_desktop_app_info_new_from_filename(QFile::encodeName(m_entry).constData());
        QVERIFY(entry != nullptr);
        QVERIFY(g_app_info_launch(G_APP_INFO(entry), nullptr, nullptr, nullptr) != FALSE);
        g_object_unref(entry);
        QTRY_VERIFY(QFile::exists(m_marker));

        QVERIFY(item.unregisterProgram().outcome == Outcome::Unregistered);
        QVERIFY(!item.isEnabled());
        QVERIFY(!QFile::exists(m_entry));
    }

    void disabledAndSystemWideEntriesAreHonoured() {
        AutostartLoginItem item(m_program);
        for (const char *line : {"X-GNOME-Autostart-enabled=false", "TryExec=/nowhere"}) {
            QVERIFY(item.registerProgram().outcome == Outcome::Registered);
            writeFile(m_entry, readFile(m_entry).replace("X-GNOME-Autostart-enabled=true", line));
            QVERIFY(!item.isEnabled());
        }
        const QString system = m_config.filePath(QStringLiteral("system"));
        qputenv("XDG_CONFIG_DIRS", QFile::encodeName(system));
        writeFile(system + QStringLiteral("/autostart/perchly.desktop"),
                  "[Desktop Entry]\nType=Application\nName=Perchly\nExec=true\n");
        QVERIFY(QFile::remove(m_entry));
        QVERIFY(item.isEnabled());
        QVERIFY(item.unregisterProgram().outcome == Outcome::Unregistered);
        QVERIFY(!item.isEnabled());
        QVERIFY(item.registerProgram().outcome == Outcome::Registered);
        QVERIFY(item.isEnabled());
    }

    void onlyOurOwnAppImageIsRegistered() {
        const QString own = QCoreApplication::applicationFilePath();
        qputenv("APPIMAGE", "/opt/Perchly.AppImage");
        qputenv("APPDIR", QFile::encodeName(m_config.path()));
        QCOMPARE(AutostartLoginItem::runningProgram(), own);
        qputenv("APPDIR", QFile::encodeName(QCoreApplication::applicationDirPath()));
        QCOMPARE(AutostartLoginItem::runningProgram(), QStringLiteral("/opt/Perchly.AppImage"));
        qunsetenv("APPIMAGE");
        QCOMPARE(AutostartLoginItem::runningProgram(), own);
    }

    void errorNamesTheFile() {
        AutostartLoginItem item(m_program);
        writeFile(m_config.filePath(QStringLiteral("autostart")), "a file");
        const auto result = item.registerProgram();
        QVERIFY(result.outcome == Outcome::Failed);
        QVERIFY2(result.message.contains(m_entry), qPrintable(result.message));
    }

private:
    [[nodiscard]] QString makeProgram(const QString &name) const {
        const QString path = m_config.filePath(name);
        writeProgram(path, "echo started > '" + QFile::encodeName(m_marker) + "'\n");
        return path;
    }

    const QDir m_config{qEnvironmentVariable("XDG_CONFIG_HOME")};
    const QString m_entry = m_config.filePath(QStringLiteral("autostart/perchly.desktop"));
    const QString m_marker = m_config.filePath(QStringLiteral("marker"));
    QString m_program;
};

QTEST_GUILESS_MAIN(AutostartLoginItemTest)
#include "AutostartLoginItemTest.moc"
