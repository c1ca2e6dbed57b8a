#include "Shortcuts.h"
#include "FakeHosts.h"
#include "ShelfLibrary.h"
#include "TestRegistry.h"

#include <QTest>

namespace perchly {

namespace {

struct ShortcutsFixture {
    [[nodiscard]] QStringList names() const {
        QStringList names;
        for (int row = 0; row < shortcuts.count(); ++row) {
            names.append(shortcuts.field(row, "name").toString());
        }
        return names;
    }

    FakeHosts fake;
    QString message;
    ShelfLibrary library{fake.preferences, fake.catalog, fake.openPanel};
    Shortcuts shortcuts{fake.shortcuts, fake.applications, library,
                        [this](const QString &text) { message = text; }};
};

} // namespace

class ShortcutsTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void theLastListCountsAndAFailedOneIsReported() {
        ShortcutsFixture fixture;
        fixture.shortcuts.refresh();
        fixture.shortcuts.refresh();
        QCOMPARE(fixture.fake.shortcuts.underWay(), 1);
        fixture.fake.shortcuts.answer(0, QStringLiteral("\nb one\n\n a \nb one\n"));
        const QStringList listed{QStringLiteral("b one"), QStringLiteral(" a "),
                                 QStringLiteral("b one")};
        QCOMPARE(fixture.names(), listed);
        fixture.shortcuts.refresh();
        fixture.fake.shortcuts.answer(1, QStringLiteral("b"));
        QCOMPARE(fixture.names(), listed);
        QCOMPARE(fixture.message,
                 QStringLiteral("Could not load Shortcuts. Open the Shortcuts app and try again."));
    }

    void runs_data() {
        QTest::addColumn<int>("status");
        QTest::addColumn<bool>("stopped");
        QTest::addColumn<QString>("message");
        const QString failed =
            QStringLiteral("Shortcut failed: Resize. Check its permissions in Shortcuts.");
        QTest::newRow("ends well") << 0 << false << QStringLiteral("Finished: Resize");
        QTest::newRow("fails") << 3 << false << failed;
        QTest::newRow("is stopped") << -1 << true << QStringLiteral("Stopped: Resize");
    }

    void runs() {
        QFETCH(int, status);
        QFETCH(bool, stopped);
        ShortcutsFixture fixture;
        fixture.shortcuts.run(QStringLiteral("Resize"));
        fixture.shortcuts.run(QStringLiteral("Other"));
        QCOMPARE(fixture.fake.shortcuts.started, QStringList(QStringLiteral("run Resize")));
        QCOMPARE(fixture.shortcuts.busy(), QStringLiteral("Resize"));
        if (stopped) {
            fixture.shortcuts.stop();
        }
        fixture.fake.shortcuts.answer(status);
        QVERIFY(fixture.shortcuts.busy().isNull());
        QTEST(fixture.message, "message");
        fixture.shortcuts.stop(); // nothing runs
        QCOMPARE(fixture.fake.shortcuts.stops, stopped ? 1 : 0);
        fixture.shortcuts.run(QStringLiteral("Other"));
        fixture.fake.shortcuts.answer(3);
        QVERIFY(fixture.message.startsWith(QStringLiteral("Shortcut failed: Other.")));
    }

    void theFolderIsMadeAndOpened() {
        ShortcutsFixture fixture;
        fixture.shortcuts.openFolder();
        QCOMPARE(fixture.fake.applications.openedUrls,
                 QList{QUrl(QStringLiteral("file:///shortcuts"))});
        QCOMPARE(fixture.fake.shortcuts.started, QStringList(QStringLiteral("list")));
        fixture.fake.shortcuts.folderError = QStringLiteral("It cannot be made.");
        fixture.shortcuts.openFolder();
        QCOMPARE(fixture.message, QStringLiteral("It cannot be made."));
    }
};

static const RegisteredTest<ShortcutsTest> registeredShortcutsTest;

} // namespace perchly

#include "ShortcutsTest.moc"
