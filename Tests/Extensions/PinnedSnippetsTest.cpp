#include "DocumentFuzz.h"
#include "ExtrasFixture.h"
#include "PreferenceKeys.h"
#include "TestRegistry.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QTest>

namespace perchly {

namespace {

const QByteArray
    snippetsDocument(R"([{"id":"6F9619FF-8B86-D011-B42D-00C04FC964FF","text":"a\nb ✓"}])");

QStringList texts(const ShelfExtras &extras) {
    QStringList result;
    for (const Snippet &snippet : extras.snippets()) {
        result.append(snippet.text);
    }
    return result;
}

} // namespace

class PinnedSnippetsTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void aTextIsPinnedOnceAndAsItIs() {
        ExtrasFixture fixture;
        for (const char *text : {"abc", "", "ABC", "abc", "  "}) {
            fixture.extras.pin(QString::fromLatin1(text));
        }
        QCOMPARE(texts(fixture.extras),
                 (QStringList{QStringLiteral("abc"), QStringLiteral("ABC"), QStringLiteral("  ")}));
        fixture.extras.removeSnippet(fixture.extras.snippets().at(1).id);
        QCOMPARE(texts(fixture.extras), (QStringList{QStringLiteral("abc"), QStringLiteral("  ")}));
    }

    void onlyWhatIsToBeKeptIsStored() {
        ExtrasFixture fixture;
        fixture.extras.pin(QStringLiteral("one"));
        fixture.extras.pin(QStringLiteral("two"));
        QVERIFY(!fixture.fake.preferences.values.contains(keys::pinnedSnippets));
        QCOMPARE(texts(ShelfExtras(fixture.fake.hosts)), QStringList());
        fixture.extras.setPersist(true);
        QCOMPARE(QJsonDocument::fromJson(fixture.stored(keys::pinnedSnippets)).array().size(), 2);
        fixture.extras.pin(QStringLiteral("three"));
        fixture.extras.removeSnippet(fixture.extras.snippets().first().id);
        QCOMPARE(ShelfExtras(fixture.fake.hosts).snippets(), fixture.extras.snippets());
        QCOMPARE(texts(fixture.extras),
                 (QStringList{QStringLiteral("two"), QStringLiteral("three")}));
        fixture.extras.setPersist(false);
        QVERIFY(!fixture.fake.preferences.values.contains(keys::pinnedSnippets));
        QCOMPARE(fixture.extras.snippets().size(), 2);
    }

    void refusesATextWithoutRoomAndSaysSo() {
        ExtrasFixture fixture;
        const QString large(Preferences::maxValueBytes / 2, u'x');
        QVERIFY(fixture.extras.pin(large));
        QVERIFY(!fixture.extras.pin(large + u'y'));
        QCOMPARE(fixture.extras.snippets().size(), 1);
        QVERIFY(fixture.tools.message().startsWith(QStringLiteral("There is no room")));
    }

    void aDocumentThatIsNotOneIsReplaced_data() {
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("a torn one") << snippetsDocument.chopped(5);
        QTest::newRow("a list of texts") << QByteArray("[\"a\"]");
        QTest::newRow("a number for a text")
            << QByteArray(snippetsDocument).replace("\"a\\nb ✓\"", "1");
    }

    void aDocumentThatIsNotOneIsReplaced() {
        QFETCH(QByteArray, content);
        ExtrasFixture fixture;
        fixture.fake.preferences.setBoolean(keys::persistSnippets, true);
        fixture.fake.preferences.setData(keys::pinnedSnippets, content);
        QCOMPARE(texts(ShelfExtras(fixture.fake.hosts)), QStringList());
        QCOMPARE(fixture.stored(keys::pinnedSnippets), QByteArray("[]"));
        fixture.fake.preferences.setData(keys::pinnedSnippets, snippetsDocument);
        QCOMPARE(texts(ShelfExtras(fixture.fake.hosts)), QStringList{QStringLiteral("a\nb ✓")});
        QCOMPARE(fixture.stored(keys::pinnedSnippets), snippetsDocument);
    }

    void noDocumentBreaksTheDecoder() {
        fuzzDecoder(snippetsDocument, decodeSnippets, encodeSnippets);
    }
};

static const RegisteredTest<PinnedSnippetsTest> registeredPinnedSnippetsTest;

} // namespace perchly

#include "PinnedSnippetsTest.moc"
