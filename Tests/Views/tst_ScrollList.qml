pragma ComponentBehavior: Bound

import QtQuick
import Perchly.Look

/// A list, with its keys, between two buttons.
ViewTestCase {
    id: root

    readonly property ScrollList rows: root.made?.["rows"] ?? null
    readonly property string at: root.Window.activeFocusItem?.["label"] ?? root.Window.activeFocusItem?.Accessible.name ?? ""

    property Component listComponent: Component { ListBetweenButtons {} }

    component ListBetweenButtons: FocusScope {
        property alias rows: rows

        PushButton {
            focus: true
            text: "before"
        }
        ScrollList {
            id: rows

            height: 150
            label: "Rows"
            model: ListModel {}
            width: 380
            y: 40

            delegate: RowCard {
                id: row

                required property int index
                required property string name
                required property int buttons

                Accessible.name: row.name
                height: 30
                selectable: row.buttons === 3

                Repeater {
                    model: 2

                    PushButton {
                        required property int index

                        usable: row.name !== "row2" || index !== 1
                        text: row.name + "ab"[index]
                        visible: index < row.buttons
                    }
                }
            }
        }
        PushButton {
            text: "after"
        }
    }

    /// Creates a list with that many rows of two buttons.
    function open(count: int) {
        root.make(root.listComponent, {});
        root.made.forceActiveFocus();
        for (let row = 0; row < count; ++row) {
            root.rows.model.append({ name: "row" + row, buttons: 2 });
        }
        wait(30);
    }

    function reach(keys: var, expected: string) {
        for (const key of keys) {
            keyClick(key, key === Qt.Key_Backtab ? Qt.ShiftModifier : Qt.NoModifier);
        }
        tryCompare(root, "at", expected);
    }

    function test_listIsOneStopForTab() {
        root.open(40);
        root.reach([Qt.Key_Tab], "row0a");
        root.reach([Qt.Key_Right, Qt.Key_Right], "row0b");
        root.reach([Qt.Key_Down, Qt.Key_Down], "row2a"); // where b is disabled
        root.reach([Qt.Key_Tab], "after");
        root.reach([Qt.Key_Backtab], "row2a");
        root.reach([Qt.Key_Backtab], "before");
        root.reach([Qt.Key_Tab, Qt.Key_End], "row39a");
        root.reach([Qt.Key_Down, Qt.Key_PageUp], "row36a");
        root.reach([Qt.Key_Home, Qt.Key_PageUp, Qt.Key_PageDown], "row4a");
        root.reach([Qt.Key_Tab], "after");
        root.rows.model.remove(0, 40);
        wait(30);
        root.reach([Qt.Key_Backtab], "before");
    }

    function test_focusSurvivesInsertedAndRemovedRows() {
        root.open(3);
        root.rows.model.move(0, 2, 1); // the keyboard enters at the top all the same
        root.reach([Qt.Key_Tab], "row1a");
        root.rows.model.move(2, 0, 1);
        root.reach([Qt.Key_Right], "row1b");
        root.rows.model.insert(0, { name: "first", buttons: 2 });
        wait(30);
        root.reach([], "row1b");
        root.rows.model.remove(1);
        root.rows.model.setProperty(1, "buttons", 1); // row1 loses the button
        root.reach([], "row1a");
        root.rows.model.remove(1);
        root.reach([], "row2a");
        root.rows.model.insert(0, { name: "all", buttons: 3 }); // selectable as a whole
        root.reach([Qt.Key_Up, Qt.Key_Up, Qt.Key_Left], "all");
        root.rows.model.clear();
        root.reach([], "after");
    }

    function test_wheelAndScrollBarScroll() {
        root.open(40);
        const view = root.rows.view;
        mouseWheel(root.rows, 50, 50, 0, -120);
        compare(view.contentY, 60);
        mousePress(root.rows, 390, 20);
        mouseMove(root.rows, 390, 400);
        mouseRelease(root.rows, 390, 400);
        compare(view.contentY, view.contentHeight - view.height);
    }

    height: 200
    name: "ScrollList"
    width: 400
}
