#include "HoverTest.h"

#include "ShellFixture.h"

#include <QTest>

using namespace perchly;
using namespace std::chrono_literals;

void HoverTest::opensAtTheFirstMovementAndClosesAfterTheDelay() {
    ShellFixture shell;
    shell.pointerOntoPill();
    QVERIFY(shell.expanded());
    QVERIFY(!shell.delegate->keyboardOpen());
    QCOMPARE(shell.fake.panel.frame, expandedFrame);
    QVERIFY2(shell.fake.pointer.polling, "jumps of the pointer go unnoticed while open");

    shell.pointerAway();
    shell.fake.clock.advance(349ms);
    QVERIFY(shell.expanded());
    shell.fake.clock.advance(1ms);
    QVERIFY(!shell.expanded());
    QVERIFY2(!shell.fake.pointer.polling, "a closed shelf must not poll");

    shell.fake.clock.advance(499ms);
    QCOMPARE(shell.fake.panel.frame, expandedFrame);
    shell.fake.clock.advance(1ms);
    QCOMPARE(shell.fake.panel.frame, compactFrame);
}

void HoverTest::staysOpenWhenThePointerReturnsInTime() {
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

void HoverTest::readsTheCollapseDelay_data() {
    QTest::addColumn<QVariant>("stored");
    QTest::addColumn<int>("milliseconds");
    QTest::newRow("a number is taken") << QVariant(1.5) << 1500;
    QTest::newRow("zero closes at once") << QVariant(0.0) << 0;
    QTest::newRow("a negative number closes at once") << QVariant(-3.0) << 0;
    QTest::newRow("text is not a number") << QVariant(QStringLiteral("2")) << 350;
    QTest::newRow("a boolean is not a number") << QVariant(true) << 350;
}

void HoverTest::readsTheCollapseDelay() {
    QFETCH(QVariant, stored);
    QFETCH(int, milliseconds);
    ShellFixture shell;
    if (stored.typeId() == QMetaType::Bool) {
        shell.fake.preferences.setBoolean(keys::hoverDelay, stored.toBool());
    } else if (stored.typeId() == QMetaType::QString) {
        shell.fake.preferences.setString(keys::hoverDelay, stored.toString());
    } else {
        shell.fake.preferences.setNumber(keys::hoverDelay, stored.toDouble());
    }
    shell.pointerOntoPill();
    shell.pointerAway();
    if (milliseconds > 0) {
        shell.fake.clock.advance(std::chrono::milliseconds(milliseconds - 1));
        QVERIFY(shell.expanded());
    }
    shell.fake.clock.advance(1ms);
    QVERIFY(!shell.expanded());
}

void HoverTest::opensOnHoverUnlessStoredFalse_data() {
    QTest::addColumn<QVariant>("stored");
    QTest::addColumn<bool>("opens");
    QTest::newRow("absent opens") << QVariant() << true;
    QTest::newRow("true opens") << QVariant(true) << true;
    QTest::newRow("false does not open") << QVariant(false) << false;
    QTest::newRow("the number 0 is no boolean") << QVariant(0.0) << true;
}

void HoverTest::opensOnHoverUnlessStoredFalse() {
    QFETCH(QVariant, stored);
    QFETCH(bool, opens);
    ShellFixture shell;
    if (stored.typeId() == QMetaType::Bool) {
        shell.fake.preferences.setBoolean(keys::openOnHover, stored.toBool());
    } else if (stored.isValid()) {
        shell.fake.preferences.setNumber(keys::openOnHover, stored.toDouble());
    }
    shell.pointerOntoPill();
    QCOMPARE(shell.expanded(), opens);

    shell.delegate->toggleKeyboardOpen();
    QVERIFY2(shell.expanded(), "a click opens whatever the preference says");
}

void HoverTest::takesMinimumEdgesAndLeavesMaximumEdges_data() {
    QTest::addColumn<double>("x");
    QTest::addColumn<double>("y");
    QTest::addColumn<bool>("inside");
    QTest::newRow("the bottom left corner belongs to the pill") << 575.0 << 866.0 << true;
    QTest::newRow("the right edge does not") << 865.0 << 880.0 << false;
    QTest::newRow("just inside the right edge does") << 864.0 << 880.0 << true;
    QTest::newRow("the top edge of the display does not") << 700.0 << 900.0 << false;
    QTest::newRow("below the pill does not") << 700.0 << 865.0 << false;
}

void HoverTest::takesMinimumEdgesAndLeavesMaximumEdges() {
    QFETCH(double, x);
    QFETCH(double, y);
    QFETCH(bool, inside);
    ShellFixture shell;
    shell.fake.pointer.moveTo(x, y);
    QCOMPARE(shell.expanded(), inside);
}

void HoverTest::shrinksThePanelSoonerWithReducedMotion() {
    ShellFixture shell;
    shell.fake.motion.reduced = true;
    shell.pointerOntoPill();
    shell.pointerAway();
    shell.fake.clock.advance(350ms + 149ms);
    QCOMPARE(shell.fake.panel.frame, expandedFrame);
    shell.fake.clock.advance(1ms);
    QCOMPARE(shell.fake.panel.frame, compactFrame);
}

void HoverTest::reopensWhileThePanelIsStillLarge() {
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

void HoverTest::neverClosesUnderTheWidgetChooser() {
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

void HoverTest::ignoresThePointerInKeyboardMode() {
    ShellFixture shell;
    shell.delegate->toggleKeyboardOpen();
    QVERIFY2(!shell.fake.pointer.polling, "in keyboard mode the pointer does not matter");
    shell.pointerOntoPill();
    shell.pointerAway();
    shell.fake.clock.advance(10s);
    QVERIFY(shell.expanded());
}

void HoverTest::showShelfClosesByTheHoverRules() {
    ShellFixture shell;
    shell.delegate->showShelf();
    QVERIFY(shell.expanded());
    QVERIFY(!shell.delegate->keyboardOpen());
    shell.pointerAway();
    shell.fake.clock.advance(350ms);
    QVERIFY(!shell.expanded());
}

void HoverTest::cancelsAPendingCollapseWhenToggled() {
    ShellFixture shell;
    shell.pointerOntoPill();
    shell.pointerAway();
    shell.fake.clock.advance(200ms);
    shell.delegate->toggleKeyboardOpen();
    shell.fake.clock.advance(5s);
    QVERIFY(shell.expanded());
    QVERIFY(shell.delegate->keyboardOpen());
}
