import QtQuick
import Perchly.Shelf

ShelfTestCase {
    id: root

    readonly property var names: ["a", "b", "c", "d", "e", "f", "g", "h", "i", "j", "k", "l", "m", "n"]
    /// In the view: the centre of the strip's first entry.
    readonly property real firstX: 26 + 20 + 32 + 33
    readonly property real entryY: 34 + 12 + 145 + 20 + 16 + 20 + 44
    readonly property AppStrip strip: root.view?.content?.strip ?? null

    function openWith(count: int) {
        root.fixture.fill([], root.names.slice(0, count));
        root.open("top");
        root.expand();
    }

    function drag(fromX: real, byX: real) {
        mousePress(root.view, fromX, root.entryY);
        for (let step = 1; step <= 8; ++step) {
            mouseMove(root.view, fromX + byX * step / 8, root.entryY);
        }
        mouseRelease(root.view, fromX + byX, root.entryY);
    }

    function test_arrowsAndWheelTurnThePage() {
        root.openWith(14);
        root.press("Previous icons");
        compare(root.strip.offset, 0);
        // A swipe is many small wheel events, but turns only one page.
        for (let turn = 0; turn < 30; ++turn) {
            mouseWheel(root.view, root.firstX, root.entryY, -15, 0);
        }
        compare(root.strip.offset, -480);
        root.press("More icons");
        compare(root.strip.offset, -550);
        tryCompare(root.strip, "shift", -550);
        mouseWheel(root.view, root.firstX, root.entryY, 0, 120);
        compare(root.strip.offset, -70);
        root.fixture.fill(["Clock"], root.names.slice(0, 5));
        compare(root.strip.offset, 0);
    }

    function test_dragTurnsThePageWithoutLaunching() {
        root.openWith(10);
        root.drag(root.firstX + 400, -60);
        tryCompare(root.strip, "shift", -230);
        root.drag(root.firstX + 160, 200);
        tryCompare(root.strip, "shift", 0);
        compare(root.fixture.takeCalls(), []);
        mouseClick(root.view, root.firstX + 80, root.entryY);
        compare(root.fixture.takeCalls(), ["launch /apps/b"]);
    }

    function test_keyboardReachesHiddenEntries() {
        root.openWith(14);
        root.view.forceActiveFocus();
        root.tab(5); // past both menus, the session and the settings to the first entry
        keyClick(Qt.Key_Return);
        compare(root.fixture.takeCalls(), ["launch /apps/a"]);
        root.fixture.repeatKey(root.view, Qt.Key_Return);
        compare(root.fixture.takeCalls(), []);
        keyClick(Qt.Key_Right);
        keyClick(Qt.Key_Return);
        compare(root.fixture.takeCalls(), ["launch /apps/b"]);
        keyClick(Qt.Key_Left);
        keyClick(Qt.Key_PageDown);
        compare(root.strip.offset, -480);
        keyClick(Qt.Key_PageUp);
        root.tab(9);
        verify(root.strip.offset < 0);
    }

    name: "AppStrip"
}
