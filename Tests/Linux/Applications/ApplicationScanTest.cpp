#include "ApplicationScan.h"
#include "DocumentFuzz.h"
#include "TestFiles.h"

#include <QLocale>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <gio/gdesktopappinfo.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace perchly;

namespace {

/// The session that all tests run in: the library reads it once.
constexpr const char *currentDesktop = "Mountain:GNOME";

struct Entry {
    const char *file;
    QByteArray text;
};

QByteArray application(const QByteArray &name, const QByteArray &more = "Exec=true\n") {
    return "[Desktop Entry]\nType=Application\nName=" + name + "\n" + more;
}

/// Every rule once. Which of them are shown is what the desktop's own library says.
QList<Entry> personal() {
    return {
        {"plain.desktop", application("Plain")},
        {"localised.desktop",
         application("Base", "Exec=true\nName[de]=Deutsch\nName[de_AT]=Österreich\n"
                             "Name[sr@latin]=Latinica\nName[sr]=Ћирилица\n")},
        {"unreadable language.desktop",
         application("Base", "Exec=true\nName[de_AT]=\xff\xfe\nName[de]=Lesbar\n")},
        {"escapes.desktop", application("A\\sB\\\\C\\tD")},
        {"again.desktop",
         application("First") + "[Other]\nName=Other\n[Desktop Entry]\nName=Merged\n"},
        {"spaces.desktop",
         "# comment\n\n  [Desktop Entry]  \n  Type = Application\nName  =  A  b \n"
         "Exec = true\n"},
        {"returns.desktop", "[Desktop Entry]\r\nType=Application\r\nName=Returns\r\nExec=true\r\n"},
        {"hidden.desktop", application("Hidden", "Exec=true\nHidden=true\n")},
        {"hidden too.desktop", application("Hidden", "Exec=true\nHidden=1\n")},
        {"no display.desktop", application("No display", "Exec=true\nNoDisplay=true  \n")},
        {"only here.desktop", application("Only", "Exec=true\nOnlyShowIn=KDE;GNOME;\n")},
        {"only there.desktop", application("Only", "Exec=true\nOnlyShowIn=KDE\n")},
        {"not here.desktop", application("Not", "Exec=true\nNotShowIn=GNOME;\n")},
        {"specific.desktop",
         application("Both", "Exec=true\nOnlyShowIn=Mountain;\nNotShowIn=GNOME;\n")},
        {"tried.desktop", application("Tried", "Exec=true\nTryExec=sh\n")},
        {"tried in vain.desktop", application("Tried", "Exec=true\nTryExec=nothing-like-it\n")},
        {"tried file.desktop", application("Tried", "Exec=true\nTryExec=/etc/passwd\n")},
        {"missing.desktop", application("Missing", "Exec=/nowhere/at/all %U\n")},
        {"quoted.desktop", application("Quoted", "Exec=\"/bin/sh\" -c \"a b\"\n")},
        {"torn quote.desktop", application("Torn", "Exec=sh -c \"a b\n")},
        {"no command.desktop", application("No command", "")},
        {"bus.desktop", application("Bus", "DBusActivatable=true\n")},
        {"link.desktop", "[Desktop Entry]\nType=Link\nName=Link\nURL=http://a\n"},
        {"nameless.desktop", "[Desktop Entry]\nType=Application\nExec=true\n"},
        {"broken line.desktop", application("Broken") + "nonsense\n"},
        {"broken group.desktop", application("Broken") + "[Group\n"},
        {"empty.desktop", ""},
        {"not an entry.txt", application("Text")},
        {"one/two/deep.desktop", application("Deep")},
        {"a folder.desktop/inside.desktop", application("Inside")},
        {"masks.desktop", "broken"},
        {"sub/masks.desktop", application("Masks", "Exec=true\nHidden=true\n")},
    };
}

/// Of the system: some are hidden by the person's own.
QList<Entry> common() {
    return {{"plain.desktop", application("Plain of the system")},
            {"masks.desktop", application("Masked by what is broken")},
            {"sub-masks.desktop", application("Masked by what is hidden")},
            {"sub/deeper.desktop", application("Deeper")}};
}

void writeAll(const QDir &folder, const QList<Entry> &entries) {
    for (const Entry &entry : entries) {
        writeFile(folder.filePath(QString::fromUtf8(entry.file)), entry.text);
    }
}

/// As the library tells it; an application without a name has its file's.
void addShown(QStringList &shown, GAppInfo *information) {
    auto *entry = G_DESKTOP_APP_INFO(information);
    if (g_app_info_should_show(information) == FALSE || g_desktop_app_info_get_is_hidden(entry)) {
        return;
    }
    const QString path = QFile::decodeName(g_desktop_app_info_get_filename(entry));
    const QString name = QString::fromUtf8(g_app_info_get_name(information));
    const bool named = !name.isEmpty() && name != QStringLiteral("Unnamed");
    shown.append(path + u'=' + (named ? name : QFileInfo(path).completeBaseName()));
}

void compareWithFound(QStringList expected, const MenuRules &rules) {
    QStringList names;
    for (const FoundApplication &application : scanApplications(rules)) {
        names.append(application.path + u'=' + application.name);
    }
    names.sort();
    expected.sort();
    QCOMPARE(names, expected);
}

} // namespace

/// Against the desktop's own library as the judge.
class ApplicationScanTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() {
        const QDir own(qEnvironmentVariable("XDG_DATA_HOME"));
        const QDir system(own.filePath(QStringLiteral("../system")));
        // What is installed on this machine is as good a case as any.
        qputenv("XDG_DATA_DIRS", QFile::encodeName(system.absolutePath()) + ":/usr/share:/nowhere");
        qputenv("XDG_CURRENT_DESKTOP", currentDesktop);
        writeAll(own.filePath(QStringLiteral("applications")), personal());
        writeAll(system.filePath(QStringLiteral("applications")), common());
    }

    void findsWhatMenusShow_data() {
        QTest::addColumn<QByteArray>("locale");
        QTest::addColumn<QString>("localised");
        QTest::newRow("in Austria") << QByteArray("de_AT.UTF-8") << QStringLiteral("Österreich");
        QTest::newRow("in Serbia, by the other script")
            << QByteArray("sr_RS.UTF-8@latin") << QStringLiteral("Latinica");
        QTest::newRow("nowhere") << QByteArray("C") << QStringLiteral("Base");
    }

    void findsWhatMenusShow() {
        QFETCH(const QByteArray, locale);
        QFETCH(const QString, localised);
        qputenv("LC_ALL", locale);
        const auto reset = qScopeGuard([] { qunsetenv("LC_ALL"); });
        QStringList expected;
        GList *all = g_app_info_get_all();
        for (const GList *one = all; one != nullptr; one = one->next) {
            addShown(expected, G_APP_INFO(one->data));
        }
        g_list_free_full(all, g_object_unref);
        compareWithFound(expected, MenuRules::ofSession());
        QVERIFY(
            expected.contains(desktopEntryPath(QStringLiteral("localised")) + u'=' + localised));
        QVERIFY(expected.size() >= 15);
    }

    void judgesDamagedEntriesLikeTheLibrary() {
        const QTemporaryDir folder;
        constexpr int rounds = 1500;
        QRandomGenerator random(20261125);
        const QList<Entry> originals = personal();
        QStringList expected;
        for (int round = 0; round < rounds; ++round) {
            const QByteArray text =
                damaged(originals.at(random.bounded(int(originals.size()))).text, random)
                    .replace('\0', ' ')
                    .replace('\\', '/'); // GLib's answer to invalid escapes varies by version
            const QString path = folder.filePath(QStringLiteral("%1.desktop").arg(round));
            writeFile(path, text);
            if (auto *entry =
                    g_desktop_app_info_new_from_filename(QFile::encodeName(path).constData())) {
                addShown(expected, G_APP_INFO(entry));
                g_object_unref(entry);
            }
        }
        MenuRules rules = MenuRules::ofSession();
        rules.folders = {folder.path().toStdString()};
        compareWithFound(expected, rules);
        QVERIFY(expected.size() > rounds / 20);
    }

    void leavesOutWhatIsHiddenAndWhatHasNoEnd() {
        const QTemporaryDir folder;
        const QDir tree(folder.path());
        writeAll(tree, {{"seen.desktop", application("Seen")},
                        {"inside/seen.desktop", application("Also seen")},
                        {".hidden.desktop", application("Hidden")},
                        {".hidden/unseen.desktop", application("In a hidden folder")},
                        {"large.desktop", application("Large") + QByteArray(2 << 20, '\n')}});
        QVERIFY(QFile::link(folder.path(), tree.filePath(QStringLiteral("loop"))));
        QVERIFY(
            QFile::link(QStringLiteral("/nowhere"), tree.filePath(QStringLiteral("gone.desktop"))));
        QCOMPARE(mkfifo(QFile::encodeName(tree.filePath(QStringLiteral("pipe.desktop"))), 0600), 0);
        QStringList names;
        for (const auto &application :
             scanApplications({.folders = {folder.path().toStdString()}})) {
            if (!application.path.contains(QStringLiteral("/loop/"))) {
                names.append(application.name);
            }
        }
        QCOMPARE(names, QStringList({QStringLiteral("Also seen"), QStringLiteral("Seen")}));
    }

    void sortsLikeAFileBrowser() {
        const QTemporaryDir folder;
        const QStringList sorted{QStringLiteral("alpha"),  QStringLiteral("App 2"),
                                 QStringLiteral("App 10"), QStringLiteral("éclair"),
                                 QStringLiteral("Ecru"),   QStringLiteral("Ωmega")};
        for (const QString &name : sorted) {
            writeFile(folder.filePath(QStringLiteral("z%1.desktop").arg(10 - sorted.indexOf(name))),
                      application(name.toUtf8()));
        }
        for (const char *locale : {"C", "de_DE"}) {
            QLocale::setDefault(QLocale(QString::fromLatin1(locale)));
            QStringList names;
            for (const auto &application :
                 scanApplications({.folders = {folder.path().toStdString()}})) {
                names.append(application.name);
            }
            QCOMPARE(names, sorted);
        }
        QLocale::setDefault(QLocale::system());
    }
};

QTEST_GUILESS_MAIN(ApplicationScanTest)
#include "ApplicationScanTest.moc"
