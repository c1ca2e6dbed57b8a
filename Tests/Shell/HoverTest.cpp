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

    void leavesByAJump() {
        ShellFixture shell;
        shell.pointerOntoPill();
        shell.fake.pointer.at = {100, 100}; // without a movement
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(shell.fake.panel.panel, &leave);
        QCoreApplication::processEvents();
        shell.fake.clock.advance(350ms);
        QVERIFY(!shell.expanded());
    }

    void readsTheCollapseDelay() {
        const auto closesBy = [](const PreferenceValue &stored,
                                 std::chrono::milliseconds expected) {
            ShellFixture shell;
            shell.fake.preferences.setValue(keys::hoverDelay, stored);
            shell.pointerOntoPill();
            shell.pointerAway();
            const bool isOpen = shell.expanded();
            shell.fake.clock.advance(expected);
            return isOpen && !shell.expanded();
        };
        QVERIFY(closesBy(1.5, 1500ms) && !closesBy(1.5, 1499ms));
        QVERIFY(closesBy(-3.0, 0ms));
        QVERIFY(closesBy(true, 350ms)); // not a number
    }

    void opensOnHoverUnlessStoredFalse() {
        ShellFixture shell;
        shell.fake.preferences.setBoolean(keys::openOnHover, false);
        shell.pointerOntoPill();
        QVERIFY(!shell.expanded());
        shell.fake.preferences.setNumber(keys::openOnHover, 0); // not a boolean
        shell.pointerOntoPill();
        QVERIFY(shell.expanded());
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
        shell.pointerAway(); // cancels the pending collapse
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
        shell.fake.clock.advance(200ms); // a collapse is pending
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
