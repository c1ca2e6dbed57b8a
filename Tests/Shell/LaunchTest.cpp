#include "LaunchTest.h"

#include "ShellFixture.h"

#include <QTest>

using namespace perchly;

void LaunchTest::placesAndShowsThePanel() {
    ShellFixture shell;
    QCOMPARE(shell.fake.panel.frame, compactFrame);
    QVERIFY(shell.fake.panel.shown);
    QVERIFY(shell.fake.pointer.started);
    QVERIFY(!shell.expanded());
    QCOMPARE(shell.fake.hotKeys.registered.size(), 2);
    QVERIFY(shell.fake.playerNotifications.started);
    QCOMPARE(shell.fake.scriptHost.underWay(), 1); // the first look at what plays
    shell.delegate->terminate();
    QCOMPARE(shell.fake.scriptHost.underWay(), 0);
}

void LaunchTest::runsWithoutADisplayAndAppearsWithOne() {
    QList<perchly::Display> displays;
    ShellFixture shell([&displays](FakeHosts &fake) { displays.swap(fake.displays.displays); });
    QCOMPARE(shell.fake.panel.placements, 0);
    QCOMPARE(shell.fake.statusItem.menu.size(), 6);
    shell.pointerOntoPill();
    QVERIFY(!shell.expanded());
    shell.delegate->toggleKeyboardOpen();
    shell.delegate->toggleKeyboardOpen();

    displays.swap(shell.fake.displays.displays);
    Q_EMIT shell.fake.displays.changed();
    QCOMPARE(shell.fake.panel.frame, compactFrame);
}

void LaunchTest::theStatusMenuHasItsSixEntries() {
    ShellFixture shell;
    QStringList titles;
    for (const StatusMenuEntry &entry : shell.fake.statusItem.menu) {
        titles.append(entry.title);
    }
    QCOMPARE(titles, (QStringList{QStringLiteral("Show shelf"), QStringLiteral("Volume Mixer…"),
                                  QStringLiteral("Search…"), QStringLiteral("Workspace…"),
                                  QStringLiteral("Settings…"), QStringLiteral("Quit Perchly")}));
    QCOMPARE(shell.fake.statusItem.accessibleName, QStringLiteral("Perchly"));

    shell.fake.statusItem.menu.at(0).action();
    QVERIFY(shell.expanded());
    for (int entry = 1; entry <= 4; ++entry) {
        shell.fake.statusItem.menu.at(entry).action();
    }
    QCOMPARE(shell.fake.panel.activated,
             (QList<QWindow *>{shell.delegate->mixerWindow(), shell.delegate->toolsWindow(),
                               shell.delegate->toolsWindow(), shell.delegate->settingsWindow()}));
}

void LaunchTest::windowsOpenWithTheirTitlesAndSizes_data() {
    QTest::addColumn<QString>("action");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<bool>("minimizes");
    QTest::newRow("workspace") << "workspace"
                               << "Perchly Workspace" << QSize(660, 570) << true;
    QTest::newRow("settings") << "settings"
                              << "Perchly Settings" << QSize(660, 600) << true;
    QTest::newRow("mixer") << "mixer"
                           << "Perchly Volume Mixer" << QSize(600, 480) << false;
}

void LaunchTest::windowsOpenWithTheirTitlesAndSizes() {
    QFETCH(QString, action);
    QFETCH(QString, title);
    QFETCH(QSize, size);
    QFETCH(bool, minimizes);
    ShellFixture shell;
    shell.delegate->perform(action);
    QCOMPARE(shell.fake.panel.activated.size(), 1);
    const QWindow *window = shell.fake.panel.activated.first();
    QCOMPARE(window->title(), title);
    QCOMPARE(window->size(), size);
    QCOMPARE(window->flags().testFlag(Qt::WindowMinimizeButtonHint), minimizes);
    QVERIFY(window->flags().testFlag(Qt::WindowCloseButtonHint));
    QVERIFY(window->flags().testFlag(Qt::WindowMaximizeButtonHint));
}

void LaunchTest::aWindowIsReusedAfterItWasClosed() {
    ShellFixture shell;
    shell.delegate->showTools();
    QWindow *window = shell.delegate->toolsWindow();
    window->show();
    window->close();
    QVERIFY(!window->isVisible());
    shell.delegate->showTools();
    QCOMPARE(shell.delegate->toolsWindow(), window);
    QCOMPARE(shell.fake.panel.activated, (QList<QWindow *>{window, window}));
}

void LaunchTest::openingAWindowCollapsesTheShelf() {
    ShellFixture shell;
    shell.delegate->toggleKeyboardOpen();
    shell.delegate->showMixer();
    QVERIFY(!shell.expanded());
    QVERIFY(!shell.delegate->keyboardOpen());
    shell.pointerOntoPill();
    QVERIFY2(shell.expanded(), "hovering works again after keyboard mode");
}

void LaunchTest::searchSelectsItsSection() {
    ShellFixture shell;
    shell.delegate->showTools();
    shell.delegate->extras().setSection(QStringLiteral("Files"));
    shell.delegate->showSearch();
    QCOMPARE(shell.delegate->extras().section(), QStringLiteral("Search"));
    QCOMPARE(shell.fake.panel.activated.size(), 2);
}

void LaunchTest::followsDisplaysAndScale() {
    ShellFixture shell;
    shell.fake.displays.displays[0].frame = {0, 0, 1000, 700};
    shell.fake.displays.displays[0].visibleFrame = {0, 0, 1000, 700};
    Q_EMIT shell.fake.displays.changed();
    QCOMPARE(shell.fake.panel.frame, (ScreenRect{355, 666, 290, 34}));

    shell.delegate->showShelf();
    shell.fake.preferences.setNumber(keys::shelfScale, 1.2);
    QCOMPARE(shell.fake.panel.frame.width, 792);
    QVERIFY(qAbs(shell.fake.panel.frame.height - 622.8) < 1e-9);
}

void LaunchTest::fallsBackToTheLastDisplay_data() {
    QTest::addColumn<double>("stored");
    QTest::addColumn<double>("x");
    QTest::newRow("the second display") << 1.0 << 1440.0 + 255;
    QTest::newRow("too large means the last") << 7.0 << 1440.0 + 255;
    QTest::newRow("negative means the first") << -2.0 << 575.0;
    QTest::newRow("a fraction is no index") << 0.5 << 575.0;
}

void LaunchTest::fallsBackToTheLastDisplay() {
    QFETCH(double, stored);
    QFETCH(double, x);
    ShellFixture shell([stored](FakeHosts &fake) {
        fake.displays.displays.append(perchly::Display{.name = QStringLiteral("Second"),
                                                       .frame = {1440, 0, 800, 600},
                                                       .visibleFrame = {1440, 0, 800, 600}});
        fake.preferences.setNumber(keys::displayIndex, stored);
    });
    QCOMPARE(shell.fake.panel.frame.x, x);
    QCOMPARE(shell.fake.preferences.number(keys::displayIndex), stored);
}

void LaunchTest::performsTheDesktopsActions() {
    ShellFixture shell;
    shell.delegate->perform(QStringLiteral("show"));
    QVERIFY(shell.expanded());
    shell.delegate->perform(QStringLiteral("unheard of"));
    QVERIFY(shell.expanded());
    QVERIFY(shell.fake.panel.activated.isEmpty());
}

void LaunchTest::reportsHotKeysHeldByOthers() {
    ShellFixture shell([](FakeHosts &fake) { fake.hotKeys.heldByOthers = {1, 2}; });
    QCOMPARE(shell.delegate->productivity().message(),
             QStringLiteral("Could not register ⌃⌥Space. Another app may use that shortcut."));
}
