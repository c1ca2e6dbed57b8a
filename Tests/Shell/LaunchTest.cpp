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

    void fallsBackToTheLastDisplay() {
        for (const auto &[stored, x] : {std::pair(1.0, 1695), std::pair(7.0, 1695),
                                        std::pair(-2.0, 575), std::pair(0.5, 575)}) {
            ShellFixture shell([index = stored](FakeHosts &fake) {
                addSecondDisplay(fake);
                fake.preferences.setNumber(keys::displayIndex, index);
            });
            QCOMPARE(shell.fake.panel.frame.x, x);
            QCOMPARE(shell.fake.preferences.number(keys::displayIndex), stored);
        }
    }

    void reportsHotKeysHeldByOthers_data() {
        QTest::addColumn<QSet<int>>("heldByOthers");
        QTest::addColumn<QString>("message");
        const QString spaceTaken =
            QStringLiteral("Could not register ⌃⌥Space. Another app may use that shortcut.");
        QTest::newRow("another program holds the search chord")
            << QSet<int>{2} << QStringLiteral("Could not register ⌃⌥K for search.");
        QTest::newRow("when others hold both, the toggle's message stays")
            << QSet<int>{1, 2} << spaceTaken;
    }

    void reportsHotKeysHeldByOthers() {
        QFETCH(QSet<int>, heldByOthers);
        ShellFixture shell([&](FakeHosts &fake) { fake.hotKeys.heldByOthers = heldByOthers; });
        QTEST(shell.delegate->productivity().message(), "message");
        Q_EMIT shell.fake.hotKeys.pressed(1); // the others still work
        QCoreApplication::processEvents();
        QVERIFY(shell.delegate->keyboardOpen());
    }
};

static const RegisteredTest<LaunchTest> registeredLaunchTest;

#include "LaunchTest.moc"
