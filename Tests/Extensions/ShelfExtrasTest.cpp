#include "ShelfExtras.h"
#include "FakeHosts.h"
#include "PreferenceKeys.h"
#include "Productivity.h"
#include "RecordingShell.h"
#include "ShelfLibrary.h"
#include "ShelfModel.h"
#include "TestRegistry.h"
#include "TextSearch.h"

#include <QTemporaryDir>
#include <QTest>
#include <QThreadPool>

namespace perchly {

using namespace std::chrono_literals;

namespace {

struct ExtrasFixture {
    FakeHosts fake;
    RecordingShell shell;
    ShelfLibrary library{fake.preferences, fake.catalog, fake.openPanel};
    ShelfModel model{fake.clock, fake.preferences, fake.alertSound};
    Productivity tools{fake.hosts, library, model};
    ShelfExtras extras{fake.hosts, library, tools, shell};
};

QList<QUrl> urls(const char *text) {
    return QUrl::fromStringList(QString::fromLatin1(text).split(u' '));
}

/// The kinds and labels, joined by "|"; a title only by its first letter.
QString search(SearchResults &results, const char *query) {
    results.setProperty("query", QString::fromUtf8(query));
    QStringList shown;
    for (int row = 0; row < results.count(); ++row) {
        const QString kind = results.field(row, "kind").toString();
        const QString label = results.field(row, "label").toString();
        shown.append(kind == QStringLiteral("title") ? label.left(1) : kind + u' ' + label);
    }
    return shown.join(u'|');
}

} // namespace

class ShelfExtrasTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void launchGroupIsSavedOpenedAndRemoved() {
        ExtrasFixture f;
        for (const char *name : {"a", "b", "hidden"}) {
            f.library.add(ShelfItem::forApplication(
                QStringLiteral("/apps/%1.desktop").arg(QLatin1StringView(name)), QString()));
        }
        f.library.toggle(QStringLiteral("/apps/hidden.desktop"), ShelfLibrary::Flag::Visible);
        f.tools.held()->hold(
            urls("https://example.org/x/ file:///apps/b.desktop file:///a%20b https://e.org"));
        f.extras.groups()->save(QStringLiteral(" \t\n"));
        f.extras.groups()->save(QStringLiteral(" \n Morning\u2003\n"));
        ShelfExtras next(f.fake.hosts, f.library, f.tools, f.shell);
        LaunchGroups &groups = *next.groups();
        QCOMPARE(groups.count(), 1);
        QCOMPARE(groups.field(0, "name"), QStringLiteral("Morning"));
        QCOMPARE(groups.field(0, "contents"),
                 QStringLiteral("a, b, https://example.org/x/, a b, https://e.org"));
        f.fake.catalog.finish({{QStringLiteral("/apps/a.desktop"), QStringLiteral("Editor")},
                               {QStringLiteral("/apps/b.desktop"), QStringLiteral("Browser")}},
                              1);
        QVERIFY(
            groups.field(0, "contents").toString().startsWith(QStringLiteral("Editor, Browser,")));
        groups.launch(groups.list().first().id);
        const auto &opened = f.fake.applications.asked;
        QCOMPARE(f.fake.applications.opened.first(), QStringLiteral("/apps/a.desktop"));
        QCOMPARE(opened.size(), 5);
        const std::pair<int, const char *> failures[]{{1, "Could not open Browser"},
                                                      {2, "Could not open x"},
                                                      {4, "Could not open https://e.org"},
                                                      {3, "Could not open https://e.org"}};
        for (const auto &[place, message] : failures) {
            opened.at(place).second(QStringLiteral("no"));
            QCOMPARE(f.tools.message(), QString::fromLatin1(message));
        }
        groups.remove(groups.list().first().id);
        QCOMPARE(f.fake.preferences.data(keys::launchGroups), QByteArray("[]"));
    }

    void snippetsAreStoredOnlyIfEnabled() {
        ExtrasFixture f;
        Snippets &snippets = *f.extras.snippets();
        for (const char *text : {"abc", "", "ABC", "abc", "  "}) {
            QVERIFY(snippets.pin(QString::fromLatin1(text)));
        }
        QCOMPARE(snippets.count(), 3);
        QCOMPARE(snippets.field(2, "label"), QStringLiteral("Blank text, 2 characters"));
        QVERIFY(!f.fake.preferences.values.contains(keys::pinnedSnippets));
        snippets.setPersist(true);
        QCOMPARE(Snippets(f.fake.preferences).field(1, "text"), QStringLiteral("ABC"));
        snippets.remove(snippets.list().at(1).id);
        QVERIFY(!snippets.pin(QString(Preferences::maxValueBytes, u'x')));
        QCOMPARE(Snippets(f.fake.preferences).field(1, "text"), QStringLiteral("  "));
        snippets.setPersist(false);
        QVERIFY(!f.fake.preferences.values.contains(keys::pinnedSnippets));
        QCOMPARE(snippets.count(), 2);
    }

    void searchFindsEveryKind() {
        ExtrasFixture f;
        f.library.refresh();
        f.fake.catalog.finish({{QStringLiteral("/apps/Mail"), QStringLiteral("Mail")}});
        f.fake.preferences.setString(keys::quickNote, QStringLiteral("Buy milk"));
        f.tools.clipboard()->setClips({Clip::ofImage("x"), Clip::ofText(QStringLiteral("a\nb"))});
        f.extras.snippets()->pin(QString(1999, u'x') + QStringLiteral("😀 needle"));
        f.tools.held()->hold(urls("file:///some%20where/b%C3%BC.txt https://example.org/x"));
        const QString snippet = QStringLiteral("snippet ") + QString(1999, u'x');
        const QString all =
            QStringLiteral("A|app Mail|Q|note Buy milk|C|clip Copied image|clip a\nb|P|%1|H|"
                           "held bü.txt|held https://example.org/x");
        const std::pair<const char *, QString> searches[]{
            {"", all.arg(snippet)},
            {"MIL", QStringLiteral("Q|note Buy milk")},
            {"image", QStringLiteral("C|clip Copied image")},
            {"needle", QStringLiteral("P|%1").arg(snippet)},
            {"/some where/bü", QStringLiteral("H|held bü.txt")},
            {"zzz", QString()}};
        for (const auto &[query, rows] : searches) {
            QCOMPARE(search(*f.extras.search(), query), rows);
        }
    }

    void searchIgnoresCaseInTheUsersLanguage() {
        const QLocale before;
        QLocale::setDefault(QLocale(QStringLiteral("tr_TR")));
        const bool turkish = matchesSearch(QStringLiteral("İSTANBUL"), QStringLiteral("istanbul"));
        QLocale::setDefault(before);
        QVERIFY(turkish);
        QVERIFY(!matchesSearch(QStringLiteral("Café"), QStringLiteral("cafe")));
    }

    void batteryIsReadEvery30Seconds() {
        ExtrasFixture f;
        using Kind = PowerSource::Kind;
        const auto show = [&f](const PowerSources::Reading &reading) {
            f.fake.power.reading = reading;
            f.fake.clock.advance(30s);
            return f.extras.battery()->line();
        };
        const PowerSource other{Kind::Other, 1, 1};
        QCOMPARE(show(std::nullopt), QStringLiteral("Battery unavailable"));
        QCOMPARE(show(QList{other}), QStringLiteral("No internal battery"));
        QCOMPARE(show(QList{other, {Kind::InternalBattery, 4, 7}}),
                 QStringLiteral("57% · On battery"));
        QCOMPARE(show(QList{PowerSource{Kind::InternalBattery, 5, 5, true, true}}),
                 QStringLiteral("100% · Charging"));
        QCOMPARE(show(QList{PowerSource{Kind::InternalBattery, 5, 5, false, true}}),
                 QStringLiteral("100% · Plugged in"));
    }

    void captureErrorStaysUntilTheNextCapture() {
        ExtrasFixture f;
        f.extras.setSection(QStringLiteral("Device"));
        Capture &capture = *f.extras.capture();
        for (const int status : {1, 0}) {
            capture.start();
            capture.start(); // ignored
            f.fake.clock.advance(1s);
            QVERIFY(capture.active() && capture.error().isEmpty());
            QCOMPARE(f.fake.screenCapture.captures.count(), 1U);
            f.fake.screenCapture.captures.answer(status);
            QVERIFY(!capture.active());
            QCOMPARE(capture.error().isEmpty(), status == 0);
            QCOMPARE(f.shell.calls.join(u' '), QStringLiteral("clearScreen showTools"));
            f.shell.calls.clear();
        }
    }

    void oldCapturesAreRemovedUnlessStored() {
        const QTemporaryDir folder;
        qputenv("TMPDIR", QFile::encodeName(folder.path()));
        const QString id = QStringLiteral("00000000-0000-0000-0000-00000000000");
        for (const auto &[name, days] : {std::pair(u'-' + id + u'A', 2),
                                         {u'-' + id + u'B', 2},
                                         {u'-' + id + u'C', 0},
                                         {u'-' + id + u'D', 2},
                                         {QStringLiteral("-x"), 2},
                                         {QStringLiteral(" 2026-11-26 10-52-33"), 2},
                                         {QStringLiteral(" 2026-11-26 10-52-33 2"), 2},
                                         {QStringLiteral(" 2026-11-26 10-52"), 2}}) {
            QFile file(folder.filePath(QStringLiteral("Perchly%1.png").arg(name)));
            QVERIFY(file.open(QIODevice::WriteOnly));
            QVERIFY(file.setFileTime(QDateTime::currentDateTime().addDays(-days),
                                     QFile::FileModificationTime));
        }
        ExtrasFixture f;
        f.tools.held()->hold(
            {QUrl::fromLocalFile(folder.filePath(QStringLiteral("Perchly-%1B.png").arg(id))),
             QUrl::fromLocalFile(
                 folder.filePath(QStringLiteral("Perchly 2026-11-26 10-52-33.png")))});
        f.extras.groups()->save(QStringLiteral("Pictures"));
        f.fake.preferences.setString(keys::quickNote,
                                     folder.filePath(QStringLiteral("Perchly-%1D.png").arg(id)));
        for (const bool complete : {false, true}) {
            f.fake.preferences.complete = complete;
            Capture::removeOld(f.fake.preferences);
            QThreadPool::globalInstance()->waitForDone();
            QCOMPARE(QDir(folder.path()).count(), complete ? 8U : 10U); // with . and ..
        }
        qunsetenv("TMPDIR");
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files).join(u' ').remove(id),
                 QStringLiteral("Perchly 2026-11-26 10-52-33.png Perchly 2026-11-26 10-52.png "
                                "Perchly-B.png Perchly-C.png Perchly-D.png Perchly-x.png"));
    }

    void previewStartsAtTheRequestedFile() {
        ExtrasFixture f;
        const QList<QUrl> files = urls("file:///a file:///b file:///c");
        f.extras.togglePreview(files.at(1), files);
        QCOMPARE(f.fake.quickLook.shown, files.sliced(1));
    }
};

static const RegisteredTest<ShelfExtrasTest> registeredShelfExtrasTest;

} // namespace perchly

#include "ShelfExtrasTest.moc"
