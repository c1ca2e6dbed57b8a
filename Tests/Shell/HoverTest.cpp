#include "ShellFixture.h"
#include "TestRegistry.h"

#include <QTest>

using namespace perchly;
using namespace std::chrono_literals;

class HoverTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void shelfStaysOpenUnderAMenu() {
        ShellFixture shell;
        shell.pointerOntoPill();
        const ShelfItem first = shell.delegate->library().shown().constFirst();
        shell.delegate->showEntryMenu(first.id, nullptr, {}, false);
        shell.pointerAway();
        shell.fake.clock.advance(std::chrono::seconds(1));
        QVERIFY(shell.expanded());
        QCOMPARE(shell.fake.contextMenu.shown.size(), 3); // a widget cannot be removed
        shell.fake.contextMenu.closed();
        shell.fake.contextMenu.shown.at(1).action();
        QVERIFY(shell.delegate->library().shown().constFirst() != first);
        shell.fake.clock.advance(std::chrono::seconds(1));
        QVERIFY(!shell.expanded());
    }

    void opensAtOnceAndClosesAfterTheDelay() {
        ShellFixture shell;
        const auto settles = [&shell](std::chrono::milliseconds delay) {
            shell.fake.clock.advance(delay - 1ms);
            const bool isLarge = shell.fake.panel.frame == expandedFrame;
            shell.fake.clock.advance(1ms);
            return isLarge && shell.fake.panel.frame == compactFrame;
        };
        shell.pointerOntoPill();
        QCOMPARE(shell.fake.panel.frame, expandedFrame);
        shell.pointerAway();
        shell.fake.clock.advance(349ms);
        QVERIFY(shell.expanded());
        shell.fake.clock.advance(1ms);
        QVERIFY(!shell.expanded());
        QVERIFY(settles(500ms));

        shell.fake.motion.reduced = true;
        shell.fake.preferences.setNumber(keys::hoverDelay, 1.5);
        shell.pointerOntoPill();
        shell.pointerAway();
        shell.fake.clock.advance(1500ms);
        QVERIFY(settles(150ms));

        shell.fake.preferences.setBoolean(keys::openOnHover, false);
        shell.pointerOntoPill();
        QVERIFY(!shell.expanded());
    }

    void opensAfterTheDelayUnderThePointerOnly() {
        ShellFixture shell;
        shell.fake.preferences.setNumber(keys::openingDelay, 0.3);
        const auto opens = [&shell] {
            shell.fake.clock.advance(299ms);
            const bool wasClosed = !shell.expanded();
            shell.fake.clock.advance(1ms);
            return wasClosed && shell.expanded();
        };
        shell.pointerOntoPill();
        shell.pointerAway();
        shell.pointerOntoPill();
        shell.fake.pointer.at = {100, 100}; // jumps without a movement
        QVERIFY(!opens());
        shell.pointerOntoPill();
        shell.fake.pointer.held = true;
        QVERIFY(!opens());
        shell.fake.pointer.release();
        QVERIFY(opens());
    }

    void staysOpenWhenThePointerReturnsInTime() {
        ShellFixture shell;
        shell.pointerOntoPill();
        shell.pointerAway();
        shell.fake.clock.advance(300ms);
        shell.pointerOntoPill();
        shell.fake.clock.advance(1s);
        QVERIFY(shell.expanded());
        shell.pointerAway();
        shell.fake.clock.advance(300ms);
        shell.pointerAway(); // further movement outside does not restart the delay
        shell.fake.clock.advance(50ms);
        QVERIFY(!shell.expanded());
        shell.pointerOntoPill(); // while the panel is still large
        shell.fake.clock.advance(5s);
        QVERIFY(shell.expanded());
        QCOMPARE(shell.fake.panel.frame, expandedFrame);
    }

    void closesWhenThePointerJumpsAway() {
        ShellFixture shell;
        shell.pointerOntoPill();
        shell.fake.pointer.at = {100, 100}; // jumps without a movement
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(shell.fake.panel.panel, &leave);
        QCoreApplication::processEvents();
        shell.fake.clock.advance(350ms);
        QVERIFY(!shell.expanded());
    }

    void staysOpenForTheOutcomeOfACommand() {
        ShellFixture shell;
        ShelfModel &model = shell.delegate->model();
        const auto isOpenLater = [&shell] {
            QCoreApplication::processEvents();
            shell.fake.clock.advance(350ms);
            return shell.expanded();
        };
        shell.pointerOntoPill();
        shell.pointerAway();
        model.setControlling(true);
        QVERIFY(isOpenLater());
        model.setControlling(false);
        model.setControlError(QStringLiteral("It failed."));
        QVERIFY(isOpenLater());
        model.clearControlError();
        model.setTyping(true);
        QVERIFY(isOpenLater());
        model.setTyping(false);
        QVERIFY(!isOpenLater());
        model.setControlError(QStringLiteral("It failed, too late."));
        QVERIFY(model.controlError().isNull());
        shell.pointerOntoPill();
        model.setControlError(QStringLiteral("It failed."));
        model.setExpanded(false);
        QVERIFY(model.controlError().isNull());
    }

    void chooserAndKeyboardCancelAPendingCollapse() {
        ShellFixture shell;
        shell.pointerOntoPill();
        shell.pointerAway();
        shell.delegate->model().setChoosingWidget(true);
        shell.pointerAway();
        shell.fake.clock.advance(5s);
        QVERIFY(shell.expanded());
        shell.delegate->model().setChoosingWidget(false);
        shell.pointerAway();
        shell.fake.clock.advance(200ms);
        shell.delegate->toggleKeyboardOpen();
        shell.fake.clock.advance(5s);
        QVERIFY(shell.expanded());
    }
};

static const RegisteredTest<HoverTest> registeredHoverTest;

#include "HoverTest.moc"
