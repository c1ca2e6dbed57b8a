#include "DocumentFuzz.h"
#include "ExtrasFixture.h"
#include "PreferenceKeys.h"
#include "TestRegistry.h"

#include <QTest>

namespace perchly {

namespace {

const QByteArray
    document(R"([{"id":"6f9619ff-8b86-d011-b42d-00c04fc964ff","name":"Work ✓","extra":1,)"
             R"("urls":["file:///a%20b/c.desktop","https://example.org/%C3%BC?q=1#x"]}])");

QUrl url(const char *text) {
    return QUrl(QString::fromUtf8(text));
}

} // namespace

class LaunchGroupsTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void whatTheShelfShowsAndTheTrayHoldsIsSaved() {
        ExtrasFixture fixture;
        for (const char *name : {"a", "b", "hidden"}) {
            fixture.library.add(ShelfItem::forApplication(
                QStringLiteral("/apps/%1.desktop").arg(QLatin1StringView(name)), QString()));
        }
        fixture.library.toggle(QStringLiteral("/apps/hidden.desktop"), ShelfLibrary::Flag::Visible);
        fixture.library.add(ShelfItem::forShortcut(QStringLiteral("Tea")));
        fixture.tools.hold({url("https://example.org/x"), url("file:///apps/b.desktop"),
                            url("file:///home/a%20b.txt")});
        fixture.extras.saveGroup(QStringLiteral(" \t\n"), &fixture.library, &fixture.tools);
        fixture.extras.saveGroup(QStringLiteral(" \n Morning\u2003\n"), &fixture.library,
                                 &fixture.tools);
        QCOMPARE(fixture.extras.groups().size(), 1);
        const LaunchGroup group = fixture.extras.groups().first();
        QCOMPARE(group.name, QStringLiteral("Morning"));
        QCOMPARE(group.urls, (QList{url("file:///apps/a.desktop"), url("file:///apps/b.desktop"),
                                    url("https://example.org/x"), url("file:///home/a%20b.txt")}));
        fixture.extras.saveGroup(group.name, &fixture.library, &fixture.tools);
        QCOMPARE(ShelfExtras(fixture.fake.hosts).groups(), fixture.extras.groups());
        fixture.extras.removeGroup(group.id);
        QCOMPARE(ShelfExtras(fixture.fake.hosts).groups().size(), 1);
        QVERIFY(ShelfExtras(fixture.fake.hosts).groups().first().id != group.id);
    }

    void launchingAsksForAllInOrderAndNamesTheLastFailure_data() {
        QTest::addColumn<QList<int>>("refused"); // in the order of the answers
        QTest::addColumn<QString>("message");
        QTest::newRow("all are opened") << QList<int>{} << QString();
        QTest::newRow("the first is gone") << QList{0} << QStringLiteral("Could not open gone.txt");
        QTest::newRow("an application is not installed any more")
            << QList{1} << QStringLiteral("Could not open app.desktop");
        QTest::newRow("two fail, the later one is answered first")
            << QList{2, 0} << QStringLiteral("Could not open page");
        QTest::newRow("an address without a path is named whole")
            << QList{3} << QStringLiteral("Could not open https://example.org");
    }

    void launchingAsksForAllInOrderAndNamesTheLastFailure() {
        QFETCH(QList<int>, refused);
        ExtrasFixture fixture;
        const QList urls{url("file:///home/gone.txt"), url("file:///apps/app.desktop"),
                         url("https://example.org/a/page/"), url("https://example.org")};
        const LaunchGroup group{.id = QUuid::createUuid(), .name = {}, .urls = urls};
        fixture.extras.setGroups({group});
        fixture.extras.launchGroup(group.id, &fixture.tools);
        const auto asked = std::exchange(fixture.fake.applications.asked, {});
        QCOMPARE(asked.size(), urls.size());
        QCOMPARE(fixture.fake.applications.openedUrls, urls.sliced(2));
        for (const int place : refused) {
            QCOMPARE(asked.at(place).first, urls.at(place));
            asked.at(place).second(QStringLiteral("no"));
        }
        for (int place = 0; place < int(urls.size()); ++place) {
            if (!refused.contains(place)) {
                asked.at(place).second(QString());
            }
        }
        QTEST(fixture.tools.message(), "message");
    }

    void theStoredForm() {
        const auto groups = decodeGroups(document);
        QVERIFY(groups.has_value());
        QByteArray expected = document;
        expected.replace("\"extra\":1,", "")
            .replace("6f9619ff-8b86-d011-b42d-00c04fc964ff",
                     "6F9619FF-8B86-D011-B42D-00C04FC964FF");
        QCOMPARE(encodeGroups(*groups), expected);
    }

    void aDocumentThatIsNotOneIsReplaced_data() {
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("a torn one") << document.chopped(20);
        QTest::newRow("another's") << QByteArray("{\"groups\":[]}");
        QTest::newRow("no list of addresses") << QByteArray(document).replace("\"urls\"", "\"u\"");
        QTest::newRow("something else for an address")
            << QByteArray(document).replace("\"file:///a%20b/c.desktop\"", "1");
        QTest::newRow("half an address")
            << QByteArray(document).replace("file:///a%20b/c.desktop", "c.desktop");
        QTest::newRow("a number for a name") << QByteArray(document).replace("\"Work ✓\"", "1");
    }

    void aDocumentThatIsNotOneIsReplaced() {
        QFETCH(QByteArray, content);
        ExtrasFixture fixture;
        fixture.fake.preferences.setData(keys::launchGroups, content);
        QCOMPARE(ShelfExtras(fixture.fake.hosts).groups(), QList<LaunchGroup>());
        QCOMPARE(fixture.stored(keys::launchGroups), QByteArray("[]"));
    }

    void noDocumentBreaksTheDecoder() { fuzzDecoder(document, decodeGroups, encodeGroups); }
};

static const RegisteredTest<LaunchGroupsTest> registeredLaunchGroupsTest;

} // namespace perchly

#include "LaunchGroupsTest.moc"
