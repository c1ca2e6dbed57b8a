#include "SearchResults.h"
#include "ExtrasFixture.h"
#include "TestRegistry.h"

#include <QAbstractItemModelTester>
#include <QRandomGenerator>
#include <QTest>

namespace perchly {

namespace {

struct SearchFixture : ExtrasFixture {
    SearchFixture() {
        results.setLibrary(&library);
        results.setTools(&tools);
        results.setExtras(&extras);
    }

    void install(const QStringList &names) {
        QList<FoundApplication> found;
        for (const QString &name : names) {
            found.append({QStringLiteral("/apps/") + name, name});
        }
        library.refresh();
        fake.catalog.finish(found);
    }

    /// "kind: label" for each row.
    [[nodiscard]] QStringList rows() const {
        QStringList shown;
        for (int row = 0; row < results.rowCount(); ++row) {
            const auto field = [&](SearchResults::Role role) {
                return results.data(results.index(row), role).toString();
            };
            shown.append(field(SearchResults::KindRole) + QStringLiteral(": ") +
                         field(SearchResults::LabelRole));
        }
        return shown;
    }

    /// The rows but for the titles.
    [[nodiscard]] QStringList matches() const {
        return rows().filter(QRegularExpression(QStringLiteral("^(?!title)")));
    }

    SearchResults results;
};

} // namespace

class SearchResultsTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void everythingIsListedBelowItsTitleInOrder() {
        SearchFixture fixture;
        fixture.install({QStringLiteral("Mail"), QStringLiteral("Ma-il")});
        fixture.results.setNote(QStringLiteral("Buy milk"));
        fixture.tools.setClips({Clip::ofImage("x"), Clip::ofText(QStringLiteral("copied"))});
        fixture.extras.pin(QStringLiteral("pinned"));
        fixture.tools.hold({QUrl(QStringLiteral("file:///home/b%C3%BC.txt")),
                            QUrl(QStringLiteral("https://example.org/x"))});
        QCOMPARE(fixture.rows(),
                 (QStringList{
                     QStringLiteral("title: Apps"), QStringLiteral("app: Mail"),
                     QStringLiteral("app: Ma-il"), QStringLiteral("title: Quick note"),
                     QStringLiteral("note: Buy milk"), QStringLiteral("title: Clipboard"),
                     QStringLiteral("clip: Copied image"), QStringLiteral("clip: copied"),
                     QStringLiteral("title: Pinned snippets"), QStringLiteral("snippet: pinned"),
                     QStringLiteral("title: Held files and links"), QStringLiteral("held: bü.txt"),
                     QStringLiteral("held: https://example.org/x")}));
        QCOMPARE(fixture.results.firstPath(), QStringLiteral("/apps/Mail"));
        fixture.results.setQuery(QStringLiteral("nothing at all"));
        QCOMPARE(fixture.rows(),
                 (QStringList{QStringLiteral("title: Apps"), QStringLiteral("title: Clipboard"),
                              QStringLiteral("title: Pinned snippets"),
                              QStringLiteral("title: Held files and links")}));
        QCOMPARE(fixture.results.firstPath(), QString());
    }

    void aSearchFinds_data() {
        QTest::addColumn<QString>("query");
        QTest::addColumn<QStringList>("found");
        const auto row = [](const char *name, const char *query, const QStringList &found) {
            QTest::newRow(name) << QString::fromUtf8(query) << found;
        };
        row("letters of either case", "MAI", {QStringLiteral("app: Mail")});
        row("accents however they are encoded", "CAFE\u0301", {QStringLiteral("app: Café")});
        row("a picture by its label", "image", {QStringLiteral("clip: Copied image")});
        row("a link by its scheme", "https:", {QStringLiteral("held: https://example.org/x")});
        row("a file by its folder, as it is encoded", "/some%20",
            {QStringLiteral("held: notes.txt")});
        row("the end of a long text", "needle",
            {QStringLiteral("snippet: ") + QString(2000, u'x')});
        row("the note", "milk", {QStringLiteral("note: Buy milk")});
    }

    void aSearchFinds() {
        QFETCH(QString, query);
        SearchFixture fixture;
        fixture.install({QStringLiteral("Café"), QStringLiteral("Mail"), QStringLiteral("Ma-il")});
        fixture.results.setNote(QStringLiteral("Buy milk"));
        fixture.tools.setClips({Clip::ofImage("x")});
        fixture.extras.pin(QString(3000, u'x') + QStringLiteral("needle"));
        fixture.tools.hold({QUrl(QStringLiteral("file:///some%20where/notes.txt")),
                            QUrl(QStringLiteral("https://example.org/x"))});
        fixture.results.setQuery(query);
        QTEST(fixture.matches(), "found");
    }

    void rowsThatStayKeepTheirPlaces() {
        SearchFixture fixture;
        const QAbstractItemModelTester tester(
            &fixture.results, QAbstractItemModelTester::FailureReportingMode::QtTest);
        QRandomGenerator random(7);
        for (int round = 0; round < 400; ++round) {
            if (random.bounded(3) == 0) {
                fixture.results.setQuery(random.bounded(2) == 0 ? QStringLiteral("a") : QString());
            }
            QList<std::pair<QPersistentModelIndex, QString>> before;
            const QStringList rowsBefore = fixture.rows();
            for (int row = 0; row < fixture.results.rowCount(); ++row) {
                before.append({fixture.results.index(row), rowsBefore.at(row)});
            }
            QStringList names;
            for (int letter = 0; letter < 8; ++letter) {
                if (random.bounded(3) > 0) {
                    names.append(QString(QChar(u'a' + letter)));
                }
            }
            fixture.install(names);
            QStringList expected;
            for (const QString &name : std::as_const(names)) {
                if (fixture.results.query().isEmpty() || name == fixture.results.query()) {
                    expected.append(QStringLiteral("app: ") + name);
                }
            }
            QCOMPARE(fixture.matches(), expected);
            for (const auto &[index, shown] : std::as_const(before)) {
                QCOMPARE(index.isValid(), fixture.rows().contains(shown));
                QVERIFY(!index.isValid() || fixture.rows().at(index.row()) == shown);
            }
        }
        fixture.results.setQuery({});
        const QStringList reversed{QStringLiteral("c"), QStringLiteral("b"), QStringLiteral("a")};
        fixture.install({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")});
        fixture.install(reversed);
        QCOMPARE(fixture.matches().join(QString()), QStringLiteral("app: capp: bapp: a"));
    }

    void manyScatteredRowsGoAtOnce() {
        SearchFixture fixture;
        QStringList names;
        for (int number = 0; number < 2000; ++number) {
            names.append(QStringLiteral("App %1").arg(number));
        }
        fixture.install(names);
        const QAbstractItemModelTester tester(
            &fixture.results, QAbstractItemModelTester::FailureReportingMode::QtTest);
        for (const char *query : {"7", "77", "777", "77", "", "1999"}) {
            fixture.results.setQuery(QString::fromLatin1(query));
            QCOMPARE(fixture.matches().size(), names.filter(QString::fromLatin1(query)).size());
        }
    }
};

static const RegisteredTest<SearchResultsTest> registeredSearchResultsTest;

} // namespace perchly

#include "SearchResultsTest.moc"
