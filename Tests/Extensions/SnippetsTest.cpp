#include "Snippets.h"
#include "FakePreferences.h"
#include "PreferenceKeys.h"
#include "TestRegistry.h"

#include <QTest>

namespace perchly {

namespace {

QString texts(const Snippets &snippets) {
    QStringList texts;
    for (const Snippet &snippet : snippets.list()) {
        texts.append(snippet.text);
    }
    return texts.join(u'|');
}

} // namespace

class SnippetsTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void snippetsAreStoredOnlyWhileTheyAreKept() {
        FakePreferences preferences;
        Snippets snippets(preferences);
        for (const char *text : {"abc", "", "ABC", "abc", "  "}) {
            QVERIFY(snippets.pin(QString::fromLatin1(text)));
        }
        QCOMPARE(texts(snippets), QStringLiteral("abc|ABC|  "));
        QCOMPARE(snippets.field(2, "label"), QStringLiteral("Blank text, 2 characters"));
        QVERIFY(!preferences.values.contains(keys::pinnedSnippets));
        snippets.setPersist(true);
        QCOMPARE(texts(Snippets(preferences)), QStringLiteral("abc|ABC|  "));
        snippets.remove(snippets.list().at(1).id);
        snippets.pin(QStringLiteral("three"));
        QCOMPARE(texts(Snippets(preferences)), QStringLiteral("abc|  |three"));
        snippets.setPersist(false);
        QVERIFY(!preferences.values.contains(keys::pinnedSnippets));
        QCOMPARE(snippets.count(), 3);
    }

    void aTextThatDoesNotFitIsRefused() {
        FakePreferences preferences;
        Snippets snippets(preferences);
        const QString large(Preferences::maxValueBytes / 2, u'x');
        QVERIFY(snippets.pin(large));
        QVERIFY(!snippets.pin(large + u'y'));
        QCOMPARE(snippets.count(), 1);
    }
};

static const RegisteredTest<SnippetsTest> registeredSnippetsTest;

} // namespace perchly

#include "SnippetsTest.moc"
