#include "LaunchGroups.h"
#include "FakeHosts.h"
#include "HeldFiles.h"
#include "PreferenceKeys.h"
#include "ShelfLibrary.h"
#include "StoredRecords.h"
#include "TestRegistry.h"

#include <QElapsedTimer>
#include <QTest>

namespace perchly {

namespace {

struct GroupsFixture {
    FakeHosts fake;
    QString message;
    ShelfLibrary library{fake.preferences, fake.catalog, fake.openPanel};
    HeldFiles held{fake.openPanel};
    LaunchGroups groups{fake.preferences, fake.applications, library, held,
                        [this](const QString &text) { message = text; }};
};

QList<QUrl> urls(const char *text) {
    return QUrl::fromStringList(QString::fromLatin1(text).split(u' '));
}

const QByteArray
    document(R"([{"id":"6F9619FF-8B86-D011-B42D-00C04FC964FF","name":"Work ✓",)"
             R"("urls":["file:///a%20b/c.desktop","https://example.org/%C3%BC?q=1#x"]}])");

} // namespace

class LaunchGroupsTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void theShownAppsAndTheTrayAreSavedOnce() {
        GroupsFixture fixture;
        for (const char *name : {"a", "b", "hidden"}) {
            fixture.library.add(ShelfItem::forApplication(
                QStringLiteral("/apps/%1.desktop").arg(QLatin1StringView(name)), QString()));
        }
        fixture.library.toggle(QStringLiteral("/apps/hidden.desktop"), ShelfLibrary::Flag::Visible);
        fixture.held.hold(urls("https://example.org/x file:///apps/b.desktop file:///a%20b.txt"));
        fixture.groups.save(QStringLiteral(" \t\n"));
        fixture.groups.save(QStringLiteral(" \n Morning\u2003\n"));
        QCOMPARE(fixture.groups.field(0, "name"), QStringLiteral("Morning"));
        QCOMPARE(fixture.groups.field(0, "contents"),
                 QStringLiteral("a.desktop, b.desktop, https://example.org/x, a b.txt"));
        const LaunchGroups next(fixture.fake.preferences, fixture.fake.applications,
                                fixture.library, fixture.held, {});
        QCOMPARE(next.list().size(), 1);
        QCOMPARE(next.list().first().urls,
                 urls("file:///apps/a.desktop file:///apps/b.desktop https://example.org/x "
                      "file:///a%20b.txt"));
        fixture.groups.remove(next.list().first().id);
        QCOMPARE(fixture.fake.preferences.data(keys::launchGroups), QByteArray("[]"));
    }

    void tenThousandHeldFilesAreSavedInTime() {
        GroupsFixture fixture;
        QList<QUrl> many;
        for (int number = 0; number < 10'000; ++number) {
            many.append(QUrl(QStringLiteral("https://e.org/%1").arg(number)));
        }
        fixture.held.hold(many);
        QElapsedTimer timer;
        timer.start();
        fixture.groups.save(QStringLiteral("Many"));
        QVERIFY2(timer.elapsed() < 1000, qPrintable(QString::number(timer.elapsed())));
        QCOMPARE(fixture.groups.list().first().urls.size(), 10'000);
        QVERIFY(fixture.groups.field(0, "contents").toString().size() <= 2000);
    }

    void launchingAsksForAllInOrderAndNamesTheLastFailure_data() {
        QTest::addColumn<QList<int>>("refused"); // in the order of the answers
        QTest::addColumn<QString>("message");
        QTest::newRow("none") << QList<int>{} << QString();
        QTest::newRow("an app") << QList{1} << QStringLiteral("Could not open app.desktop");
        QTest::newRow("the later one first")
            << QList{2, 0} << QStringLiteral("Could not open page");
        QTest::newRow("an address without a path")
            << QList{3} << QStringLiteral("Could not open https://example.org");
    }

    void launchingAsksForAllInOrderAndNamesTheLastFailure() {
        QFETCH(QList<int>, refused);
        GroupsFixture fixture;
        const QList<QUrl> all = urls("file:///home/gone.txt file:///apps/app.desktop "
                                     "https://example.org/a/page/ https://example.org");
        fixture.held.hold(all);
        fixture.groups.save(QStringLiteral("a"));
        fixture.groups.launch(fixture.groups.list().first().id);
        const auto asked = std::exchange(fixture.fake.applications.asked, {});
        QCOMPARE(asked.size(), all.size());
        QCOMPARE(fixture.fake.applications.openedUrls, all.sliced(2));
        for (const int place : refused) {
            QCOMPARE(asked.at(place).first, all.at(place));
            asked.at(place).second(QStringLiteral("no"));
        }
        QTEST(fixture.message, "message");
    }

    void theStoredForm() {
        const auto groups = decodeRecords<LaunchGroup>(document);
        QVERIFY(groups.has_value());
        QCOMPARE(encodeRecords(*groups), document);
        QVERIFY(!decodeRecords<LaunchGroup>(
            QByteArray(document).replace("file:///a%20b/c.desktop", "c.desktop")));
        QVERIFY(!decodeRecords<LaunchGroup>(
            QByteArray(document).replace("6F9619FF-8B86-D011-B42D-00C04FC964FF", "work")));
    }
};

static const RegisteredTest<LaunchGroupsTest> registeredLaunchGroupsTest;

} // namespace perchly

#include "LaunchGroupsTest.moc"
