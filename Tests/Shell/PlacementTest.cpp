#include "ShellFixture.h"
#include "TestRegistry.h"

#include <QTest>

using namespace perchly;
using namespace std::chrono_literals;

namespace {

constexpr ScreenPoint onPill{720, 890};

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

} // namespace

class PlacementTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void appearsOnTheFirstDisplayAndFollowsItsPreferences() {
        QList<perchly::Display> displays;
        ShellFixture shell([&displays](FakeHosts &fake) { displays.swap(fake.displays.displays); });
        QCOMPARE(shell.fake.panel.frame, ScreenRect());
        shell.delegate->toggleKeyboardOpen();
        shell.delegate->toggleKeyboardOpen();
        displays.swap(shell.fake.displays.displays);
        Q_EMIT shell.fake.displays.changed();
        QCOMPARE(shell.fake.panel.frame, compactFrame);
        shell.delegate->showShelf();
        shell.fake.preferences.setNumber(keys::shelfScale, 1.2);
        QCOMPARE(shell.fake.panel.frame.width, 792);
    }

    void dragStartsAtEightPoints() {
        const auto clicks = [](double dx, double dy) {
            ShellFixture shell;
            drag(shell, onPill, {onPill.x + dx, onPill.y + dy});
            shell.delegate->handleReleased();
            return shell.delegate->opener().isKeyboardOpen();
        };
        QVERIFY(clicks(7, 0) && !clicks(0, -8) && !clicks(6, 6));
    }

    void dragCollapsesAndDocks() {
        ShellFixture shell([](FakeHosts &fake) {
            const ScreenRect frame{1440, 0, 800, 600};
            fake.displays.displays.append(
                {.connector = QStringLiteral("DP-1"), .frame = frame, .visibleFrame = frame});
        });
        shell.delegate->toggleKeyboardOpen();
        drag(shell, {500, 890}, {1450, 300});
        QVERIFY(!shell.expanded() && !shell.delegate->opener().isKeyboardOpen());
        // Held 10 points from the top, and moved wholly onto the other display.
        const ScreenRect dragged{1440, 276, 290, 34};
        QCOMPARE(shell.fake.panel.frame, dragged);
        QCOMPARE(shell.fake.panel.mark, (ScreenRect{1440, 240, 34, 120}));

        shell.delegate->resize(); // nothing else moves it meanwhile
        shell.delegate->toggleKeyboardOpen();
        shell.pointerOntoPill();
        shell.fake.keys.press(Qt::Key_Escape);
        shell.fake.clock.advance(5s);
        QCOMPARE(shell.fake.panel.frame, dragged);
        QVERIFY(!shell.expanded() && shell.fake.panel.keyboard); // losing it would end the drag

        shell.fake.pointer.at = {1450, 300};
        shell.fake.preferences.written.clear();
        shell.delegate->handleReleased();
        QVERIFY(!shell.fake.panel.keyboard);
        QCOMPARE(shell.fake.preferences.written,
                 QStringList(
                     QStringLiteral("shelfEdge+shelfEdgePosition+displayIndex+displayConnector")));
        QCOMPARE(shell.fake.panel.frame, (ScreenRect{1440, 240, 34, 120}));
        QCOMPARE(shell.fake.panel.mark, ScreenRect());
        shell.fake.displays.displays.swapItemsAt(0, 1); // follows the connector
        Q_EMIT shell.fake.displays.changed();
        QCOMPARE(shell.fake.panel.frame, (ScreenRect{1440, 240, 34, 120}));
    }

    void cancelledDragWithoutItsDisplayReturns() {
        ShellFixture shell;
        QList<perchly::Display> gone;
        drag(shell, onPill, {5, 460});
        gone.swap(shell.fake.displays.displays);
        Q_EMIT shell.fake.displays.changed();
        shell.delegate->handleCanceled();
        gone.swap(shell.fake.displays.displays);
        Q_EMIT shell.fake.displays.changed();
        QCOMPARE(shell.fake.panel.frame, compactFrame);
    }

    void hangsBelowPanelsOrCoversThem() {
        ShellFixture shell([](FakeHosts &fake) {
            fake.displays.displays.first().visibleFrame = {0, 40, 1440, 830};
        });
        QCOMPARE(shell.fake.panel.frame, (ScreenRect{575, 836, 290, 34}));
        shell.fake.preferences.setBoolean(keys::overPanels, true);
        shell.delegate->resize();
        QCOMPARE(shell.fake.panel.frame, compactFrame);
    }

    void cancelledPressDocksButDoesNotClick() {
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

static const RegisteredTest<PlacementTest> registeredPlacementTest;

#include "PlacementTest.moc"
