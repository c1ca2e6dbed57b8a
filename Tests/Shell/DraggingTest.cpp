#include "ShellFixture.h"
#include "TestRegistry.h"

#include <QTest>

using namespace perchly;
using namespace std::chrono_literals;

namespace {

/// Presses at one point and moves in a straight line to the other, without releasing.
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

} // namespace

class DraggingTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void eightPointsTellDragFromClick() {
        const auto clicks = [](double dx, double dy) {
            ShellFixture shell;
            drag(shell, onPill, {onPill.x + dx, onPill.y + dy});
            shell.delegate->handleReleased();
            return shell.delegate->opener().isKeyboardOpen();
        };
        QVERIFY(clicks(0, 0));
        QVERIFY(clicks(7, 0));
        QVERIFY(!clicks(0, -8));
        QVERIFY(!clicks(6, 6));
    }

    void dragCollapsesAndDocks() {
        ShellFixture shell(addSecondDisplay);
        shell.delegate->toggleKeyboardOpen();
        drag(shell, {500, 890}, {1450, 300});
        QVERIFY(!shell.expanded());
        QVERIFY(!shell.fake.panel.keyboard);
        // Held where it was pressed, 110 points from the left and 10 from the top.
        const ScreenRect dragged{1340, 276, 290, 34};
        QCOMPARE(shell.fake.panel.frame, dragged);

        shell.delegate->resize(); // nothing else moves it meanwhile
        shell.delegate->showShelf();
        shell.delegate->toggleKeyboardOpen();
        shell.pointerOntoPill();
        shell.fake.clock.advance(5s);
        QCOMPARE(shell.fake.panel.frame, dragged);
        QVERIFY(!shell.expanded() && !shell.fake.panel.keyboard);

        shell.fake.pointer.at = {1450, 300};
        shell.fake.preferences.written.clear();
        shell.delegate->handleReleased();
        QCOMPARE(shell.fake.preferences.written,
                 QStringList(QStringLiteral("shelfEdge+shelfEdgePosition+displayIndex")));
        QCOMPARE(shell.fake.preferences.string(keys::shelfEdge), QStringLiteral("left"));
        QCOMPARE(shell.fake.preferences.number(keys::shelfEdgePosition), 0.5);
        QCOMPARE(shell.fake.preferences.number(keys::displayIndex), 1);
        QCOMPARE(shell.fake.panel.frame, (ScreenRect{1440, 240, 34, 120}));

        // A side strip is held by its centre. Outside every display the current one counts.
        drag(shell, {1442, 340}, {2300, 300});
        QCOMPARE(shell.fake.panel.frame, (ScreenRect{2283, 240, 34, 120}));
        shell.delegate->handleReleased();
        QCOMPARE(shell.fake.panel.frame, (ScreenRect{2206, 240, 34, 120}));
    }

    void dragEndsWithoutDisplays() {
        ShellFixture shell;
        drag(shell, onPill, {5, 450});
        const ScreenRect dragged = shell.fake.panel.frame;
        shell.fake.displays.displays.clear();
        shell.delegate->handleReleased();
        QVERIFY(!shell.delegate->model().dragging());
        QVERIFY(!shell.fake.preferences.string(keys::shelfEdge));
        QCOMPARE(shell.fake.panel.frame, dragged);
    }

    void lostReleaseDocksButDoesNotClick() {
        ShellFixture shell;
        drag(shell, onPill, {5, 460});
        shell.delegate->handleCanceled();
        QCOMPARE(shell.fake.preferences.string(keys::shelfEdge), QStringLiteral("left"));
        shell.delegate->handlePressed();
        shell.delegate->handleCanceled();
        shell.delegate->handleReleased();
        QVERIFY(!shell.delegate->opener().isKeyboardOpen());
    }
};

static const RegisteredTest<DraggingTest> registeredDraggingTest;

#include "DraggingTest.moc"
