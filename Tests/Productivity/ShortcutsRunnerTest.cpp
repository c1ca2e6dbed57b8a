#include "FakeHosts.h"
#include "Productivity.h"
#include "TestRegistry.h"

#include <QTest>

namespace perchly {

class ShortcutsRunnerTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void aListIsTakenLineByLine_data() {
        QTest::addColumn<QString>("output");
        QTest::addColumn<QStringList>("names");
        const auto row = [](const char *name, const QString &output, const QStringList &names) {
            QTest::newRow(name) << output << names;
        };
        const QString a = QStringLiteral("b one");
        const QString b = QStringLiteral(" a ");
        row("in its order", a + u'\n' + b + u'\n', {a, b});
        row("without empty lines", u'\n' + a + QStringLiteral("\n\n") + b, {a, b});
        row("with what is there twice", a + u'\n' + a, {a, a});
        row("none", {}, {});
    }

    void aListIsTakenLineByLine() {
        QFETCH(QString, output);
        FakeHosts fake;
        Productivity productivity(fake.hosts);
        productivity.refreshShortcuts();
        QCOMPARE(fake.shortcuts.started, QStringList(QStringLiteral("list")));
        fake.shortcuts.answer(0, output);
        QTEST(productivity.shortcuts(), "names");
        QVERIFY(productivity.message().isNull());
    }

    void aFailedListKeepsTheLastAndIsSaid() {
        FakeHosts fake;
        Productivity productivity(fake.hosts);
        productivity.refreshShortcuts();
        fake.shortcuts.answer(0, QStringLiteral("a"));
        productivity.refreshShortcuts();
        fake.shortcuts.answer(1, QStringLiteral("b"));
        QCOMPARE(productivity.shortcuts(), QStringList(QStringLiteral("a")));
        QCOMPARE(productivity.message(),
                 QStringLiteral("Could not load Shortcuts. Open the Shortcuts app and try again."));
    }

    void ofTwoListsTheLastToFinishCounts() {
        FakeHosts fake;
        Productivity productivity(fake.hosts);
        productivity.refreshShortcuts();
        productivity.refreshShortcuts();
        fake.shortcuts.answer(0, QStringLiteral("second"), 1);
        fake.shortcuts.answer(0, QStringLiteral("first"));
        QCOMPARE(productivity.shortcuts(), QStringList(QStringLiteral("first")));
    }

    void aRun_data() {
        QTest::addColumn<int>("status");
        QTest::addColumn<bool>("stopped");
        QTest::addColumn<QString>("message");
        QTest::newRow("that ends well") << 0 << false << QStringLiteral("Finished: Resize");
        const QString failed =
            QStringLiteral("Shortcut failed: Resize. Check its permissions in Shortcuts.");
        QTest::newRow("that fails") << 3 << false << failed;
        QTest::newRow("whose tool is missing") << -1 << false << failed;
        QTest::newRow("that is stopped") << -1 << true << QStringLiteral("Stopped: Resize");
        QTest::newRow("that ends well before it stops")
            << 0 << true << QStringLiteral("Finished: Resize");
    }

    void aRun() {
        QFETCH(int, status);
        QFETCH(bool, stopped);
        FakeHosts fake;
        Productivity productivity(fake.hosts);
        productivity.runShortcut(QStringLiteral("Resize"));
        QCOMPARE(productivity.busyShortcut(), QStringLiteral("Resize"));
        productivity.runShortcut(QStringLiteral("Other"));
        QCOMPARE(fake.shortcuts.started, QStringList(QStringLiteral("run Resize")));
        QCOMPARE(productivity.busyShortcut(), QStringLiteral("Resize"));
        if (stopped) {
            productivity.stopShortcut();
        }
        QCOMPARE(fake.shortcuts.stops, stopped ? 1 : 0);
        fake.shortcuts.answer(status, QStringLiteral("not shown"));
        QVERIFY(productivity.busyShortcut().isNull());
        QTEST(productivity.message(), "message");
        productivity.stopShortcut();
        productivity.runShortcut(QStringLiteral("Other"));
        fake.shortcuts.answer(3);
        QCOMPARE(fake.shortcuts.stops, stopped ? 1 : 0);
        QVERIFY(productivity.message().startsWith(QStringLiteral("Shortcut failed: Other.")));
    }

    void nothingIsWaitedForAtTheEnd() {
        FakeHosts fake;
        {
            Productivity productivity(fake.hosts);
            productivity.runShortcut(QStringLiteral("Endless"));
            productivity.refreshShortcuts();
            QCOMPARE(fake.shortcuts.underWay(), 2);
        }
        QCOMPARE(fake.shortcuts.underWay(), 0);
    }

    void aShortcutIsOnTheShelfOnce() {
        FakeHosts fake;
        Productivity productivity(fake.hosts);
        ShelfLibrary library(*fake.hosts.preferences, *fake.hosts.catalog, *fake.hosts.openPanel);
        library.setItems({});
        productivity.addToShelf(QStringLiteral("Resize"), &library);
        library.toggle(QStringLiteral("shortcut:Resize"), ShelfLibrary::Flag::Visible);
        productivity.addToShelf(QStringLiteral("Resize"), &library);
        QCOMPARE(library.items(), QList{ShelfItem::forShortcut(QStringLiteral("Resize"))});
    }

    void theFolderIsMadeAndOpened() {
        FakeHosts fake;
        Productivity productivity(fake.hosts);
        productivity.openShortcutsFolder();
        QCOMPARE(fake.applications.openedUrls, QList{QUrl(QStringLiteral("file:///shortcuts"))});
        QCOMPARE(fake.shortcuts.started, QStringList(QStringLiteral("list")));
        fake.shortcuts.folderError = QStringLiteral("It cannot be made.");
        productivity.openShortcutsFolder();
        QCOMPARE(productivity.message(), QStringLiteral("It cannot be made."));
        QCOMPARE(fake.applications.openedUrls.size(), 1);
    }
};

static const RegisteredTest<ShortcutsRunnerTest> registeredShortcutsRunnerTest;

} // namespace perchly

#include "ShortcutsRunnerTest.moc"
