#include "ShellFixture.h"
#include "TestRegistry.h"

#include <QTest>

using namespace perchly;

class LaunchTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void runsWithoutADisplayAndAppearsWithOne() {
        QList<perchly::Display> displays;
        ShellFixture shell([&displays](FakeHosts &fake) { displays.swap(fake.displays.displays); });
        QCOMPARE(shell.fake.panel.placements, 0);
        shell.pointerOntoPill();
        QVERIFY(!shell.expanded());
        shell.delegate->toggleKeyboardOpen();
        shell.delegate->toggleKeyboardOpen();

        displays.swap(shell.fake.displays.displays);
        Q_EMIT shell.fake.displays.changed();
        QCOMPARE(shell.fake.panel.frame, compactFrame);
    }

    void followsDisplaysAndScale() {
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

    void fallsBackToAnotherDisplay() {
        const auto leftEdge = [](double stored) {
            ShellFixture shell([stored](FakeHosts &fake) {
                addSecondDisplay(fake);
                fake.preferences.setNumber(keys::displayIndex, stored);
            });
            return shell.fake.panel.frame.x;
        };
        QCOMPARE(leftEdge(1), 1695);
        QCOMPARE(leftEdge(7), 1695);
        QCOMPARE(leftEdge(-2), 575);
        QCOMPARE(leftEdge(0.5), 575);
    }

    void reportsHotKeysHeldByOthers() {
        const auto message = [](const QSet<int> &heldByOthers) {
            ShellFixture shell([&](FakeHosts &fake) { fake.hotKeys.heldByOthers = heldByOthers; });
            return shell.delegate->productivity().message();
        };
        QCOMPARE(message({2}), QStringLiteral("Could not register ⌃⌥K for search."));
        QCOMPARE(message({1, 2}),
                 QStringLiteral("Could not register ⌃⌥Space. Another app may use that shortcut."));
    }
};

static const RegisteredTest<LaunchTest> registeredLaunchTest;

#include "LaunchTest.moc"
