#include "ShellFixture.h"
#include "TestRegistry.h"

#include <QTest>

using namespace perchly;
using namespace std::chrono_literals;

class HoverTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void opensAtTheFirstMovementAndClosesAfterTheDelay() {
        ShellFixture shell;
        shell.pointerOntoPill();
        QVERIFY(shell.expanded());
        QVERIFY(!shell.delegate->keyboardOpen());
        QCOMPARE(shell.fake.panel.frame, expandedFrame);

        shell.pointerAway();
        shell.fake.clock.advance(349ms);
        QVERIFY(shell.expanded());
        shell.fake.clock.advance(1ms);
        QVERIFY(!shell.expanded());

        const auto settles = [&shell](std::chrono::milliseconds delay) {
            shell.fake.clock.advance(delay - 1ms);
            const bool large = shell.fake.panel.frame == expandedFrame;
            shell.fake.clock.advance(1ms);
            return large && shell.fake.panel.frame == compactFrame;
        };
        QVERIFY(settles(500ms));

        shell.fake.motion.reduced = true;
        shell.pointerOntoPill();
        shell.pointerAway();
        shell.fake.clock.advance(350ms);
        QVERIFY(settles(150ms));
    }

    void staysOpenWhenThePointerReturnsInTime() {
        ShellFixture shell;
        shell.pointerOntoPill();
        for (int round = 0; round < 3; ++round) {
            shell.pointerAway();
            shell.fake.clock.advance(200ms);
            shell.pointerAway(); // further movement outside must not start the delay again
            shell.fake.clock.advance(100ms);
            shell.pointerOntoPill();
            shell.fake.clock.advance(1s);
            QVERIFY(shell.expanded());
        }
        shell.pointerAway();
        shell.fake.clock.advance(300ms);
        shell.pointerAway();
        shell.fake.clock.advance(50ms);
        QVERIFY(!shell.expanded());
    }

    void seesThePointerJumpAway() {
        ShellFixture shell;
        const auto jump = [&shell](ScreenPoint to, QEvent &crossing) {
            shell.fake.pointer.at = to; // without a movement
            QCoreApplication::sendEvent(shell.fake.panel.panel, &crossing);
            QCoreApplication::processEvents();
            shell.fake.clock.advance(350ms);
        };
        QEnterEvent enter({}, {}, {});
        jump({720, 890}, enter);
        QVERIFY2(!shell.expanded(), "the pill opens when it comes to lie under a pointer at rest");
        shell.pointerOntoPill();
        QEvent leave(QEvent::Leave);
        jump({100, 100}, leave);
        QVERIFY(!shell.expanded());
    }

    void readsTheCollapseDelay() {
        const auto closesAfter = [](const PreferenceValue &stored) {
            ShellFixture shell;
            shell.fake.preferences.setValue(keys::hoverDelay, stored);
            shell.pointerOntoPill();
            shell.pointerAway();
            int milliseconds = 0;
            shell.fake.clock.advance(0ms);
            for (; shell.expanded() && milliseconds < 5000; ++milliseconds) {
                shell.fake.clock.advance(1ms);
            }
            return milliseconds;
        };
        QCOMPARE(closesAfter(1.5), 1500);
        QCOMPARE(closesAfter(-3.0), 0);
        QCOMPARE(closesAfter(true), 350); // which is no number
    }

    void opensOnHoverUnlessStoredFalse() {
        ShellFixture shell;
        shell.fake.preferences.setBoolean(keys::openOnHover, false);
        shell.pointerOntoPill();
        QVERIFY(!shell.expanded());
        shell.fake.preferences.setNumber(keys::openOnHover, 0); // which is no boolean
        shell.pointerOntoPill();
        QVERIFY(shell.expanded());
    }

    void takesMinimumEdgesAndLeavesMaximumEdges() {
        const auto opensAt = [](double x, double y) {
            ShellFixture shell;
            shell.fake.pointer.moveTo(x, y);
            return shell.expanded();
        };
        QVERIFY(opensAt(575, 866));
        QVERIFY(!opensAt(865, 880));
        QVERIFY(!opensAt(700, 900));
    }

    void reopensWhileThePanelIsStillLarge() {
        ShellFixture shell;
        shell.pointerOntoPill();
        shell.pointerAway();
        shell.fake.clock.advance(350ms + 100ms);
        QVERIFY(!shell.expanded());
        shell.pointerOntoPill();
        QVERIFY(shell.expanded());
        shell.fake.clock.advance(5s);
        QCOMPARE(shell.fake.panel.frame, expandedFrame);
    }

    void neverClosesUnderTheWidgetChooser() {
        ShellFixture shell;
        shell.pointerOntoPill();
        shell.pointerAway();
        shell.delegate->model().setChoosingWidget(true);
        shell.pointerAway(); // cancels the collapse that had begun
        shell.fake.clock.advance(5s);
        QVERIFY(shell.expanded());

        shell.delegate->model().setChoosingWidget(false);
        shell.pointerAway();
        shell.fake.clock.advance(350ms);
        QVERIFY(!shell.expanded());
    }

    void staysOpenInKeyboardMode() {
        ShellFixture shell;
        shell.pointerOntoPill();
        shell.pointerAway();
        shell.fake.clock.advance(200ms); // a collapse is on its way
        shell.delegate->toggleKeyboardOpen();
        shell.fake.clock.advance(5s);
        shell.pointerOntoPill();
        shell.pointerAway();
        shell.fake.clock.advance(10s);
        QVERIFY(shell.expanded());
    }
};

static const RegisteredTest<HoverTest> registeredHoverTest;

#include "HoverTest.moc"
