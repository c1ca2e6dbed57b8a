#include "SearchResults.h"
#include "ClipboardHistory.h"
#include "FakeHosts.h"
#include "HeldFiles.h"
#include "PreferenceKeys.h"
#include "ShelfLibrary.h"
#include "Snippets.h"
#include "TestRegistry.h"
#include "TextSearch.h"

#include <QTest>

namespace perchly {

namespace {

struct SearchFixture {
    SearchFixture() {
        library.refresh();
        fake.catalog.finish({{QStringLiteral("/apps/Mail"), QStringLiteral("Mail")},
                             {QStringLiteral("/apps/Ma-il"), QStringLiteral("Ma-il")}});
        fake.preferences.setString(keys::quickNote, QStringLiteral("Buy milk"));
        clipboard.setClips({Clip::ofImage("x"), Clip::ofText(QStringLiteral("\n \n  a\n\nb"))});
        snippets.pin(QString(1999, u'x') + QStringLiteral("😀 needle"));
        held.hold({QUrl(QStringLiteral("file:///some%20where/b%C3%BC.txt")),
                   QUrl(QStringLiteral("https://example.org/x"))});
    }

    [[nodiscard]] QString rows(const char *query) {
        results.setProperty("query", QString::fromUtf8(query));
        QStringList shown;
        for (int row = 0; row < results.count(); ++row) {
            const QString kind = results.field(row, "kind").toString();
            shown.append(kind == QStringLiteral("title")
                             ? u'[' + results.field(row, "label").toString().left(1) + u']'
                             : kind + u' ' + results.field(row, "label").toString());
        }
        return shown.join(u'|');
    }

    FakeHosts fake;
    ShelfLibrary library{fake.preferences, fake.catalog, fake.openPanel};
    ClipboardHistory clipboard{fake.pasteboard, fake.clock, [](const QString &) {}};
    Snippets snippets{fake.preferences};
    HeldFiles held{fake.openPanel};
    SearchResults results{library, clipboard, snippets, held, fake.preferences};
};

} // namespace

class SearchResultsTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void searching_data() {
        QTest::addColumn<QString>("rows");
        const auto row = [](const char *query, const QString &rows) {
            QTest::newRow(query) << rows;
        };
        const QString snippet = QStringLiteral("snippet ") + QString(1999, u'x');
        row("", QStringLiteral("[A]|app Mail|app Ma-il|[Q]|note Buy milk|[C]|clip Copied image|"
                               "clip   a\n\nb|[P]|%1|[H]|held bü.txt|held https://example.org/x")
                    .arg(snippet));
        row("MAI", QStringLiteral("[A]|app Mail|[C]|[P]|[H]"));
        row("milk", QStringLiteral("[A]|[Q]|note Buy milk|[C]|[P]|[H]"));
        row("image", QStringLiteral("[A]|[C]|clip Copied image|[P]|[H]"));
        row("needle", QStringLiteral("[A]|[C]|[P]|%1|[H]").arg(snippet));
        row("/some%20", QStringLiteral("[A]|[C]|[P]|[H]|held bü.txt"));
    }

    void searching() {
        SearchFixture fixture;
        QTEST(fixture.rows(QTest::currentDataTag()), "rows");
    }

    void theFirstApplicationIsOpened() {
        SearchFixture fixture;
        QCOMPARE(fixture.results.firstPath(), QStringLiteral("/apps/Mail"));
        (void)fixture.rows("milk");
        QCOMPARE(fixture.results.firstPath(), QString());
    }

    void theNoteStaysWhileItIsEdited() {
        SearchFixture fixture;
        fixture.results.setProperty("editingNote", true);
        QCOMPARE(fixture.rows("zz"), QStringLiteral("[A]|[Q]|note Buy milk|[C]|[P]|[H]"));
        fixture.fake.preferences.setString(keys::quickNote, {});
        QCOMPARE(fixture.rows("zz"), QStringLiteral("[A]|[Q]|note |[C]|[P]|[H]"));
        fixture.results.setProperty("editingNote", false);
        QCOMPARE(fixture.rows("zz"), QStringLiteral("[A]|[C]|[P]|[H]"));
    }

    void lettersMatchInTheUsersLanguage() {
        const QLocale before;
        QLocale::setDefault(QLocale(QStringLiteral("tr_TR")));
        const bool turkish = matchesSearch(QStringLiteral("İSTANBUL"), QStringLiteral("istanbul"));
        QLocale::setDefault(before);
        QVERIFY(turkish);
        QVERIFY(matchesSearch(QStringLiteral("Cafe\u0301"), QStringLiteral("CAF\u00c9")));
        QVERIFY(!matchesSearch(QStringLiteral("Café"), QStringLiteral("cafe")));
    }
};

static const RegisteredTest<SearchResultsTest> registeredSearchResultsTest;

} // namespace perchly

#include "SearchResultsTest.moc"
