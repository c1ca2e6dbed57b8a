#include "ShellFixture.h"
#include "TestRegistry.h"

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

class DraggingTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void toldFromAClickByEightPoints() {
        const auto drags = [](double dx, double dy) {
            ShellFixture shell;
            shell.fake.preferences.written.clear();
            drag(shell, onPill, {onPill.x + dx, onPill.y + dy});
            const bool isDrag = shell.delegate->model().dragging();
            shell.delegate->handleReleased();
            return isDrag && !shell.delegate->model().dragging() &&
                   !shell.delegate->keyboardOpen() &&
                   shell.fake.preferences.written ==
                       QStringList(QStringLiteral("shelfEdge+shelfEdgePosition+displayIndex"));
        };
        const auto clicks = [](double dx) {
            ShellFixture shell;
            drag(shell, onPill, {onPill.x + dx, onPill.y});
            shell.delegate->handleReleased();
            return shell.delegate->keyboardOpen() &&
                   !shell.fake.preferences.values.contains(keys::shelfEdge);
        };
        QVERIFY(clicks(0));
        QVERIFY(clicks(7));
        QVERIFY(drags(0, -8));
        QVERIFY2(drags(6, 6), "the distance counts, not its parts");
    }

    void keepsTheGrabPointUnderThePointer() {
        ShellFixture shell;
        drag(shell, {600, 880}, {700, 500});
        // 25 points from the left and 20 from the top, as it was grabbed.
        QCOMPARE(shell.fake.panel.frame, (ScreenRect{675, 486, 290, 34}));
    }

    void holdsASideStripByItsCentre() {
        ShellFixture shell([](FakeHosts &fake) {
            fake.preferences.setString(keys::shelfEdge, QStringLiteral("left"));
        });
        QCOMPARE(shell.fake.panel.frame, (ScreenRect{0, 400, 34, 120}));
        drag(shell, {2, 500}, {300, 300});
        QCOMPARE(shell.fake.panel.frame, (ScreenRect{283, 240, 34, 120}));
    }

    void collapsesAnOpenShelfAndGivesBackTheKeyboard() {
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

    void docksWhereItIsLetGo() {
        const auto docked = [](ScreenPoint point) {
            ShellFixture shell(addSecondDisplay);
            drag(shell, onPill, point);
            shell.delegate->handleReleased();
            const FakePreferences &stored = shell.fake.preferences;
            const QString edge = stored.string(keys::shelfEdge).value_or(QString());
            const bool placed =
                shell.delegate->model().dockEdgeName() == edge &&
                shell.fake.panel.frame == shell.delegate->shelfFrame(ShelfSize::Compact);
            return QStringLiteral("%1 %2 of %3%4")
                .arg(edge)
                .arg(stored.number(keys::shelfEdgePosition).value_or(-1))
                .arg(stored.number(keys::displayIndex).value_or(-1))
                .arg(placed ? QString() : QStringLiteral(", misplaced"));
        };
        QCOMPARE(docked({360, 890}), QStringLiteral("top 0.25 of 0"));
        QCOMPARE(docked({5, 250}), QStringLiteral("left 0.25 of 0"));
        QCOMPARE(docked({5, 10}), QStringLiteral("left 0 of 0"));
        QCOMPARE(docked({1450, 300}), QStringLiteral("left 0.5 of 1"));
        // Outside every display it counts for the current one.
        QCOMPARE(docked({-100, 460}), QStringLiteral("left 0.5 of 0"));
    }

    void snapsToACameraHousing() {
        for (const auto &[distance, snaps] : {std::pair(240, true), std::pair(241, false)}) {
            ShellFixture shell(addNotch);
            QCOMPARE(shell.fake.panel.frame, (ScreenRect{520, 948, 472, 34}));
            drag(shell, {756, 970}, {756.0 - distance, 975});
            shell.delegate->handleReleased();
            QCOMPARE(shell.fake.preferences.number(keys::shelfEdgePosition) == 0.5, snaps);
            QCOMPARE(shell.delegate->model().hardwareNotchWidth() > 0, snaps);
        }
    }

    void nothingElseMovesTheShelfMeanwhile() {
        ShellFixture shell;
        drag(shell, onPill, {700, 500});
        const ScreenRect dragged = shell.fake.panel.frame;
        shell.delegate->resize();
        shell.delegate->setExpanded(true);
        shell.delegate->toggleKeyboardOpen();
        shell.pointerOntoPill();
        shell.fake.clock.advance(5s);
        QVERIFY(!shell.expanded());
        QVERIFY(!shell.delegate->keyboardOpen() && !shell.fake.panel.keyboard);
        QCOMPARE(shell.fake.panel.frame, dragged);
    }

    void endsWithoutDisplaysAndStoresNothing() {
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

    void survivesALostRelease() {
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
};

static const RegisteredTest<DraggingTest> registeredDraggingTest;

#include "DraggingTest.moc"
