#include "ApplicationScan.h"
#include "TestFiles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

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
                             "Name[sr@latin]=Latinica\nName[sr]=Ћирилица\nName[C]=C\n")},
        {"general.desktop", application("Base", "Exec=true\nName[de]=Nur deutsch\n")},
        {"unreadable language.desktop",
         application("Base", "Exec=true\nName[de_AT]=\xff\xfe\nName[de]=Lesbar\n")},
        {"escapes.desktop", application("A\\sB\\\\C\\tD\\qE")},
        {"lone escape.desktop", application("A \\")},
        {"twice.desktop", application("First", "Name=Second\nExec=true\n")},
        {"again.desktop",
         application("First") + "[Other]\nName=Other\n[Desktop Entry]\nName=Merged\n"},
        {"spaces.desktop",
         "# comment\n\n  [Desktop Entry]  \n  Type = Application\nName  =  A  b \n"
         "Exec = true\n"},
        {"returns.desktop", "[Desktop Entry]\r\nType=Application\r\nName=Returns\r\nExec=true\r\n"},
        {"no end.desktop", "[Desktop Entry]\nExec=true\nName=No end\nType=Application"},
        {"utf8.desktop", application("Legacy", "Exec=true\nEncoding=utf-8\n")},
        {"latin.desktop", application("Legacy", "Exec=true\nEncoding=Legacy-Mixed\n")},
        {"hidden.desktop", application("Hidden", "Exec=true\nHidden=true\n")},
        {"no display.desktop", application("No display", "Exec=true\nNoDisplay=true  \n")},
        {"displayed.desktop", application("Displayed", "Exec=true\nNoDisplay=yes\nHidden=0\n")},
        {"only here.desktop", application("Only", "Exec=true\nOnlyShowIn=KDE;GNOME;\n")},
        {"only there.desktop", application("Only", "Exec=true\nOnlyShowIn=KDE\n")},
        {"only nowhere.desktop", application("Only", "Exec=true\nOnlyShowIn=\n")},
        {"not here.desktop", application("Not", "Exec=true\nNotShowIn=GNOME;\n")},
        {"specific.desktop",
         application("Both", "Exec=true\nOnlyShowIn=Mountain;\nNotShowIn=GNOME;\n")},
        {"escaped list.desktop", application("List", "Exec=true\nNotShowIn=KDE\\;GNOME;\n")},
        {"tried.desktop", application("Tried", "Exec=true\nTryExec=sh\n")},
        {"tried in vain.desktop", application("Tried", "Exec=true\nTryExec=nothing-like-it\n")},
        {"tried file.desktop", application("Tried", "Exec=true\nTryExec=/etc/passwd\n")},
        {"tried folder.desktop", application("Tried", "Exec=true\nTryExec=/bin\n")},
        {"missing.desktop", application("Missing", "Exec=/nowhere/at/all %U\n")},
        {"relative.desktop", application("Relative", "Exec=./sh\nPath=/bin\n")},
        {"quoted.desktop", application("Quoted", "Exec=\"/bin/sh\" -c \"a b\"\n")},
        {"torn quote.desktop", application("Torn", "Exec=sh -c \"a b\n")},
        {"comment.desktop", application("Comment", "Exec=#sh\n")},
        {"blank.desktop", application("Blank", "Exec=\\s\\t\n")},
        {"no command.desktop", application("No command", "")},
        {"bus.desktop", application("Bus", "DBusActivatable=true\n")},
        {"link.desktop", "[Desktop Entry]\nType=Link\nName=Link\nURL=http://a\n"},
        {"type.desktop", "[Desktop Entry]\nType=application\nName=Type\nExec=true\n"},
        {"no type.desktop", "[Desktop Entry]\nName=No type\nExec=true\n"},
        {"nameless.desktop", "[Desktop Entry]\nType=Application\nExec=true\n"},
        {"other group.desktop", "[Other]\na=b\n" + application("Late")},
        {"no group.desktop", "Name=a\n" + application("Late")},
        {"broken line.desktop", application("Broken") + "nonsense\n"},
        {"broken later.desktop", application("Broken") + "[Group]\nkey\n"},
        {"broken key.desktop", application("Broken", "Exec=true\nName [de]=x\n")},
        {"broken group.desktop", application("Broken") + "[Group\n"},
        {"dash.desktop", application("Key", "Exec=true\nX-A b=x\nX_B=y\n=z\n")},
        {"empty.desktop", ""},
        {"bytes.desktop", QByteArray("\xff\xfe\x01")},
        {"not an entry.txt", application("Text")},
        {"CAPITALS.DESKTOP", application("Capitals")},
        {"one/two/deep.desktop", application("Deep")},
        {"one-two-deep.desktop", application("Hidden")},
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
            {"sub/deeper.desktop", application("Deeper")},
            {"own.desktop", application("Own")}};
}

void writeAll(const QDir &folder, const QList<Entry> &entries) {
    for (const Entry &entry : entries) {
        writeFile(folder.filePath(QString::fromUtf8(entry.file)), entry.text);
    }
}

using Names = QMap<QString, QString>;

/// As the library tells it; an application without a name has its file's.
void addShown(Names &names, GAppInfo *information) {
    auto *entry = G_DESKTOP_APP_INFO(information);
    if (g_app_info_should_show(information) == FALSE || g_desktop_app_info_get_is_hidden(entry)) {
        return;
    }
    const QString path = QFile::decodeName(g_desktop_app_info_get_filename(entry));
    const QString name = QString::fromUtf8(g_app_info_get_name(information));
    const bool named = !name.isEmpty() && name != QStringLiteral("Unnamed");
    names[path] = named ? name : QFileInfo(path).completeBaseName();
}

Names found(const MenuRules &rules) {
    Names names;
    for (const FoundApplication &application : scanApplications(rules)) {
        names[application.path] = application.name;
    }
    return names;
}

} // namespace

/// Against the desktop's own library as the judge.
class ApplicationScanTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void findsWhatMenusShow_data();
    void findsWhatMenusShow();
    void judgesDamagedEntriesLikeTheLibrary();
    void leavesOutWhatIsHiddenAndWhatHasNoEnd();
    void sortsLikeAFileBrowser();
    void namesChosenEntries();
    void stopsWhenItIsAsked();
};

void ApplicationScanTest::initTestCase() {
    const QDir own(qEnvironmentVariable("XDG_DATA_HOME"));
    const QDir system(own.filePath(QStringLiteral("../system")));
    // What is installed on this machine is as good a case as any.
    qputenv("XDG_DATA_DIRS", QFile::encodeName(system.absolutePath()) + ":/usr/share:/nowhere");
    qputenv("XDG_CURRENT_DESKTOP", currentDesktop);
    writeAll(own.filePath(QStringLiteral("applications")), personal());
    writeAll(system.filePath(QStringLiteral("applications")), common());
}

void ApplicationScanTest::findsWhatMenusShow_data() {
    QTest::addColumn<QByteArray>("locale");
    QTest::addColumn<QString>("localised");
    QTest::newRow("in Austria") << QByteArray("de_AT.UTF-8") << QStringLiteral("Österreich");
    QTest::newRow("in Germany") << QByteArray("de_DE.UTF-8") << QStringLiteral("Deutsch");
    QTest::newRow("in Serbia, by the other script")
        << QByteArray("sr_RS.UTF-8@latin") << QStringLiteral("Latinica");
    QTest::newRow("nowhere") << QByteArray("C") << QStringLiteral("C");
}

void ApplicationScanTest::findsWhatMenusShow() {
    QFETCH(const QByteArray, locale);
    QFETCH(const QString, localised);
    qputenv("LC_ALL", locale);
    const auto reset = qScopeGuard([] { qunsetenv("LC_ALL"); });
    const Names names = found(MenuRules::ofSession());

    Names expected;
    GList *all = g_app_info_get_all();
    for (const GList *one = all; one != nullptr; one = one->next) {
        addShown(expected, G_APP_INFO(one->data));
    }
    g_list_free_full(all, g_object_unref);
    for (const auto &[path, name] : expected.asKeyValueRange()) {
        QVERIFY2(names.contains(path), qPrintable(QStringLiteral("missing: ") + path));
        QCOMPARE(names.value(path), name);
    }
    for (const auto &[path, name] : names.asKeyValueRange()) {
        QVERIFY2(expected.contains(path), qPrintable(QStringLiteral("too many: ") + path));
    }

    const QString own = qEnvironmentVariable("XDG_DATA_HOME") + QStringLiteral("/applications/");
    QCOMPARE(names.value(own + QStringLiteral("localised.desktop")), localised);
    QVERIFY(names.size() >= 24);
}

void ApplicationScanTest::judgesDamagedEntriesLikeTheLibrary() {
    const QTemporaryDir folder;
    constexpr int rounds = 1500;
    QRandomGenerator random(20261125);
    const QList<Entry> originals = personal();
    const QByteArrayList spice{"=", "[", "]", ";", "\\", "\n", "\r", " ", "\"", "'", "#",
                               "%", "@", "-", "t", "T",  "d",  "D",  "1", "ä",  "\t"};
    Names expected;
    for (int round = 0; round < rounds; ++round) {
        QByteArray text = originals.at(random.bounded(int(originals.size()))).text;
        for (int change = random.bounded(1, 4); change > 0 && !text.isEmpty(); --change) {
            const int at = random.bounded(int(text.size()));
            switch (random.bounded(3)) {
            case 0:
                text.replace(at, 1, spice.at(random.bounded(int(spice.size()))));
                break;
            case 1:
                text.insert(at, spice.at(random.bounded(int(spice.size()))));
                break;
            default:
                text.remove(at, random.bounded(1, 4));
            }
        }
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
    const Names names = found(rules);
    for (int round = 0; round < rounds; ++round) {
        const QString path = folder.filePath(QStringLiteral("%1.desktop").arg(round));
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QVERIFY2(names.contains(path) == expected.contains(path), file.readAll().constData());
        QCOMPARE(names.value(path), expected.value(path));
    }
    QVERIFY(expected.size() > rounds / 10);
}

void ApplicationScanTest::leavesOutWhatIsHiddenAndWhatHasNoEnd() {
    const QTemporaryDir folder;
    const QDir tree(folder.path());
    writeAll(tree, {{"seen.desktop", application("Seen")},
                    {"inside/seen.desktop", application("Also seen")},
                    {".hidden.desktop", application("Hidden")},
                    {".hidden/unseen.desktop", application("In a hidden folder")},
                    {"large.desktop", application("Large") + QByteArray(2 << 20, '\n')}});
    QVERIFY(QFile::link(folder.path(), tree.filePath(QStringLiteral("loop"))));
    QVERIFY(QFile::link(QStringLiteral("/nowhere"), tree.filePath(QStringLiteral("gone.desktop"))));
    QCOMPARE(mkfifo(QFile::encodeName(tree.filePath(QStringLiteral("pipe.desktop"))), 0600), 0);
    QStringList visited;
    const auto visit = [&](const std::string &path) {
        visited.append(QString::fromStdString(path));
    };
    QStringList names;
    for (const auto &application :
         scanApplications({.folders = {folder.path().toStdString()}}, visit)) {
        if (!application.path.contains(QStringLiteral("/loop/"))) {
            names.append(application.name);
        }
    }
    QCOMPARE(names, QStringList({QStringLiteral("Also seen"), QStringLiteral("Seen")}));
    QVERIFY(visited.contains(tree.filePath(QStringLiteral("inside"))));
    QVERIFY(!visited.contains(tree.filePath(QStringLiteral(".hidden"))));
}

void ApplicationScanTest::sortsLikeAFileBrowser() {
    const QTemporaryDir folder;
    const QStringList sorted{QStringLiteral("alpha"),  QStringLiteral("App 2"),
                             QStringLiteral("App 10"), QStringLiteral("Beta"),
                             QStringLiteral("éclair"), QStringLiteral("Ecru"),
                             QStringLiteral("Zebra"),  QStringLiteral("Ωmega")};
    for (const QString &name : sorted) {
        writeFile(folder.filePath(QStringLiteral("z%1.desktop").arg(10 - sorted.indexOf(name))),
                  application(name.toUtf8()));
    }
    // The same name twice: the folder that comes first is first.
    const QTemporaryDir later;
    writeFile(later.filePath(QStringLiteral("a.desktop")), application("alpha"));
    for (const char *locale : {"C", "de_DE", "en_US"}) {
        QLocale::setDefault(QLocale(QString::fromLatin1(locale)));
        const auto applications = scanApplications(
            {.folders = {folder.path().toStdString(), later.path().toStdString()}});
        QCOMPARE(applications.size(), sorted.size() + 1);
        QCOMPARE(applications.at(0).path, folder.filePath(QStringLiteral("z10.desktop")));
        QCOMPARE(applications.at(1).path, later.filePath(QStringLiteral("a.desktop")));
        for (qsizetype place = 1; place < sorted.size(); ++place) {
            QCOMPARE(applications.at(place + 1).name, sorted.at(place));
        }
    }
    QLocale::setDefault(QLocale::system());
}

void ApplicationScanTest::namesChosenEntries() {
    const QTemporaryDir folder;
    writeAll(
        QDir(folder.path()),
        {{"a.desktop", application("Name", "NoDisplay=true\nExec=/nowhere\nName[de]=Deutsch\n")},
         {"b.c.desktop", "nonsense"}});
    const QStringList paths{folder.filePath(QStringLiteral("b.c.desktop")),
                            folder.filePath(QStringLiteral("a.desktop")),
                            folder.filePath(QStringLiteral("gone.desktop"))};
    QStringList names;
    for (const auto &application : describeApplications(paths, {"de_DE", "de"})) {
        names.append(application.name);
    }
    QCOMPARE(names, QStringList({QStringLiteral("b.c"), QStringLiteral("Deutsch"),
                                 QStringLiteral("gone")}));
}

void ApplicationScanTest::stopsWhenItIsAsked() {
    std::stop_source stop;
    stop.request_stop();
    QVERIFY(scanApplications(MenuRules::ofSession(), {}, stop.get_token()).isEmpty());
}

QTEST_GUILESS_MAIN(ApplicationScanTest)
#include "ApplicationScanTest.moc"
