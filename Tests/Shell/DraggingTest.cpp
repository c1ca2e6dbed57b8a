#include "DraggingTest.h"

#include "ShellFixture.h"

#include <QTest>

using namespace perchly;
using namespace std::chrono_literals;

namespace {

/// Presses at one point and moves in a straight line to the other, without letting go.
void drag(ShellFixture &shell, ScreenPoint from, ScreenPoint to) {
    shell.fake.pointer.at = from;
    shell.delegate->handlePressed();
    for (int step = 1; step <= 10; ++step) {
        shell.fake.pointer.at = {from.x + (to.x - from.x) * step / 10,
                                 from.y + (to.y - from.y) * step / 10};
        shell.delegate->handleMoved();
    }
}

constexpr ScreenPoint onPill{720, 890};

void addNotch(FakeHosts &fake) {
    fake.displays.displays = {
        perchly::Display{.name = QStringLiteral("Notched"),
                         .frame = {0, 0, 1512, 982},
                         .visibleFrame = {0, 0, 1512, 950},
                         .safeAreaTop = 32,
                         .auxiliaryTopLeftArea = ScreenRect{0, 950, 660, 32},
                         .auxiliaryTopRightArea = ScreenRect{852, 950, 660, 32}}};
}

} // namespace

void DraggingTest::toldFromAClickByEightPoints_data() {
    QTest::addColumn<double>("dx");
    QTest::addColumn<double>("dy");
    QTest::addColumn<bool>("isDrag");
    QTest::newRow("no movement is a click") << 0.0 << 0.0 << false;
    QTest::newRow("7 points are a click") << 7.0 << 0.0 << false;
    QTest::newRow("8 points are a drag") << 0.0 << -8.0 << true;
    QTest::newRow("the distance counts, not its parts") << 6.0 << 6.0 << true;
}

void DraggingTest::toldFromAClickByEightPoints() {
    QFETCH(double, dx);
    QFETCH(double, dy);
    QFETCH(bool, isDrag);
    ShellFixture shell;
    shell.fake.preferences.written.clear();
    drag(shell, onPill, {onPill.x + dx, onPill.y + dy});
    QCOMPARE(shell.delegate->model().dragging(), isDrag);
    shell.delegate->handleReleased();
    QVERIFY(!shell.delegate->model().dragging());
    QCOMPARE(shell.delegate->keyboardOpen(), !isDrag);
    QCOMPARE(shell.fake.preferences.written.contains(keys::shelfEdge), isDrag);
}

void DraggingTest::keepsTheGrabPointUnderThePointer() {
    ShellFixture shell;
    drag(shell, {600, 880}, {700, 500});
    // 25 points from the left and 20 from the top, as it was grabbed.
    QCOMPARE(shell.fake.panel.frame, (ScreenRect{675, 486, 290, 34}));
}

void DraggingTest::holdsASideStripByItsCentre() {
    ShellFixture shell([](FakeHosts &fake) {
        fake.preferences.setString(keys::shelfEdge, QStringLiteral("left"));
    });
    QCOMPARE(shell.fake.panel.frame, (ScreenRect{0, 400, 34, 120}));
    drag(shell, {2, 500}, {300, 300});
    QCOMPARE(shell.fake.panel.frame, (ScreenRect{283, 240, 34, 120}));
}

void DraggingTest::collapsesAnOpenShelfAndGivesBackTheKeyboard() {
    ShellFixture shell;
    shell.delegate->toggleKeyboardOpen();
    drag(shell, {500, 890}, {500, 870});
    QVERIFY(!shell.expanded());
    QVERIFY(!shell.delegate->keyboardOpen());
    QVERIFY(!shell.fake.panel.keyboard);
    QCOMPARE(shell.fake.panel.frame, (ScreenRect{390, 846, 290, 34}));
    shell.fake.clock.advance(5s);
    QCOMPARE(shell.fake.panel.frame, (ScreenRect{390, 846, 290, 34}));
}

void DraggingTest::docksWhereItIsLetGo_data() {
    QTest::addColumn<QPointF>("point");
    QTest::addColumn<QString>("edge");
    QTest::addColumn<double>("position");
    QTest::addColumn<double>("display");
    QTest::newRow("near the top") << QPointF(360, 890) << "top" << 0.25 << 0.0;
    QTest::newRow("near the left, as a part of the visible height")
        << QPointF(5, 250) << "left" << 0.25 << 0.0;
    QTest::newRow("near the right") << QPointF(1430, 460) << "right" << 0.5 << 0.0;
    QTest::newRow("below the visible frame stays on the edge")
        << QPointF(5, 10) << "left" << 0.0 << 0.0;
    QTest::newRow("near the left of the second display")
        << QPointF(1450, 300) << "left" << 0.5 << 1.0;
    QTest::newRow("outside every display counts for the current one")
        << QPointF(-100, 460) << "left" << 0.5 << 0.0;
}

void DraggingTest::docksWhereItIsLetGo() {
    QFETCH(QPointF, point);
    QFETCH(QString, edge);
    QFETCH(double, position);
    QFETCH(double, display);
    ShellFixture shell([](FakeHosts &fake) {
        fake.displays.displays.append(perchly::Display{.name = QStringLiteral("Second"),
                                                       .frame = {1440, 0, 800, 600},
                                                       .visibleFrame = {1440, 0, 800, 600}});
    });
    drag(shell, onPill, {point.x(), point.y()});
    shell.delegate->handleReleased();
    QCOMPARE(shell.fake.preferences.string(keys::shelfEdge), edge);
    QCOMPARE(shell.fake.preferences.number(keys::shelfEdgePosition), position);
    QCOMPARE(shell.fake.preferences.number(keys::displayIndex), display);
    QCOMPARE(shell.delegate->model().dockEdgeName(), edge);
    QCOMPARE(shell.fake.panel.frame, shell.delegate->shelfFrame(ShelfSize::Compact));
}

void DraggingTest::snapsToACameraHousing_data() {
    QTest::addColumn<double>("x");
    QTest::addColumn<bool>("snaps");
    QTest::newRow("240 points from the centre snap") << 756.0 - 240 << true;
    QTest::newRow("241 points do not") << 756.0 - 241 << false;
    QTest::newRow("far away does not") << 1400.0 << false;
}

void DraggingTest::snapsToACameraHousing() {
    QFETCH(double, x);
    QFETCH(bool, snaps);
    ShellFixture shell(addNotch);
    QCOMPARE(shell.fake.panel.frame, (ScreenRect{520, 948, 472, 34}));
    drag(shell, {756, 970}, {x, 975});
    shell.delegate->handleReleased();
    QCOMPARE(shell.fake.preferences.number(keys::shelfEdgePosition) == 0.5, snaps);
    QCOMPARE(shell.delegate->model().hardwareNotchWidth() > 0, snaps);
}

void DraggingTest::nothingElseMovesTheShelfMeanwhile() {
    ShellFixture shell;
    drag(shell, onPill, {700, 500});
    const ScreenRect dragged = shell.fake.panel.frame;
    shell.delegate->resize();
    shell.delegate->setExpanded(true);
    shell.pointerOntoPill();
    shell.fake.clock.advance(5s);
    QVERIFY(!shell.expanded());
    QCOMPARE(shell.fake.panel.frame, dragged);
}

void DraggingTest::endsWithoutDisplaysAndStoresNothing() {
    ShellFixture shell;
    drag(shell, onPill, {5, 450});
    const ScreenRect dragged = shell.fake.panel.frame;
    shell.fake.displays.displays.clear();
    shell.fake.preferences.written.clear();
    shell.delegate->handleReleased();
    QVERIFY(!shell.delegate->model().dragging());
    QVERIFY(shell.fake.preferences.written.isEmpty());
    QCOMPARE(shell.fake.panel.frame, dragged);
}

void DraggingTest::survivesALostRelease() {
    ShellFixture shell;
    drag(shell, onPill, {5, 460});
    shell.delegate->handleCanceled();
    QCOMPARE(shell.fake.preferences.string(keys::shelfEdge), QStringLiteral("left"));

    shell.fake.pointer.at = {5, 460};
    shell.delegate->handlePressed();
    shell.delegate->handleCanceled();
    QVERIFY2(!shell.delegate->keyboardOpen(), "a lost press is no click");
    shell.delegate->handleReleased();
    QVERIFY2(!shell.delegate->keyboardOpen(), "a release without a press is no click");
}
