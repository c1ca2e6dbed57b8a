pragma ComponentBehavior: Bound

import QtQuick
import QtTest
import Perchly.Look
import Perchly.Tests

/// The shared controls where a window's own test would not notice.
TestCase {
    id: root

    property Item made: null
    readonly property ShelfFixture fixture: ShelfFixture {}
    readonly property string at: root.Window.activeFocusItem?.["label"] ?? root.Window.activeFocusItem?.Accessible.name ?? ""

    Component {
        id: picker

        MenuPicker {
            id: chooser

            property var asked: []

            currentIndex: 3
            label: "Display"
            options: Array.from({ length: 30 }, (_, index) => String.fromCharCode(97 + index % 26) + index)
            width: 160

            onChosen: index => chooser.asked.push(index)
        }
    }
    Component {
        id: slider

        ValueSlider {
            id: bar

            property real stored: 0.5

            current: bar.stored
            label: "Volume"
            width: 200

            onAsked: value => bar.stored = value
        }
    }
    Component {
        id: note

        NoteEditor {
            height: 60
            label: "Note"
            width: 200
        }
    }
    Component {
        id: entry

        FocusScope {
            id: form

            property int escapes: 0

            Keys.onEscapePressed: ++form.escapes

            TextEntry {
                focus: true
                text: "name"
            }
        }
    }
    Component {
        id: area

        ScrollArea {
            height: 150
            width: 200

            Repeater {
                model: 20

                PushButton {
                    required property int index

                    text: "Button " + index
                }
            }
        }
    }
    Component {
        id: list

        FocusScope {
            id: around

            property alias rows: rows

            height: 200
            width: 400

            PushButton {
                focus: true
                text: "before"
            }
            ScrollList {
                id: rows

                height: 150
                label: "Rows"
                model: ListModel {}
                width: 400
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

                            enabled: row.name !== "row2" || index !== 1
                            text: row.name + "ab"[index]
                            visible: index < row.buttons
                        }
                    }
                    ValueSlider {
                        label: row.name + "c"
                        visible: row.name === "row3"
                    }
                }
            }
            PushButton {
                text: "after"
            }
        }
    }

    function init() {
        failOnWarning(/.?/);
    }

    function cleanup() {
        root.made?.destroy();
        root.made = null;
        wait(0);
    }

    function make(component: Component): var {
        root.made = component.createObject(root.Window.contentItem) as Item;
        root.made.forceActiveFocus();
        return root.made;
    }

    /// A list between two buttons, with that many rows of two buttons.
    function makeList(count: int): var {
        const made = root.make(list);
        for (let row = 0; row < count; ++row) {
            made.rows.model.append({ name: "row" + row, buttons: 2 });
        }
        wait(30);
        return made.rows;
    }

    function go(keys: var, expected: string) {
        for (const key of keys) {
            keyClick(key, key === Qt.Key_Backtab ? Qt.ShiftModifier : Qt.NoModifier);
        }
        tryCompare(root, "at", expected);
    }

    function test_menuStaysInsideItsWindow() {
        const chooser = root.make(picker);
        for (const y of [0, 100, 170]) {
            chooser.y = y;
            keyClick(Qt.Key_Space);
            const menu = root.Window.activeFocusItem.ListView.view;
            const top = menu.mapToItem(null, 0, 0).y;
            verify(top >= 0 && top + menu.height <= root.Window.height, `from ${top}, ${menu.height} high`);
            verify(menu["contentHeight"] > menu.height);
            keyClick(Qt.Key_Escape);
            verify(chooser.activeFocus);
        }
        compare(chooser.asked, []);
    }

    function test_menuIsUsedByLetterKeyAndPointer() {
        const chooser = root.make(picker);
        root.go([Qt.Key_Down, "b", "b", Qt.Key_Up, Qt.Key_Return], "Display"); // from b27
        compare(chooser.asked, [0]);
        keyClick(Qt.Key_Space);
        mouseClick(root.Window.contentItem, 20, 60); // 4 below the picker, 5 of padding: the first row shown
        compare(chooser.asked.length, 2);
        keyClick(Qt.Key_Space);
        mouseClick(root.Window.contentItem, 300, 100);
        verify(chooser.activeFocus);
        compare(chooser.asked.length, 2);
    }

    function test_sliderIsSetByKeysPointerAndAssistivePrograms() {
        const bar = root.make(slider);
        for (const [key, value] of [[Qt.Key_Right, 0.55], [Qt.Key_Up, 0.6], [Qt.Key_PageUp, 1], [Qt.Key_Home, 0]]) {
            keyClick(key);
            compare(bar.stored, value);
        }
        mousePress(bar, 100, 14);
        fuzzyCompare(bar.stored, 0.5, 0.01);
        mouseMove(bar, -40, 14);
        compare(bar.stored, 0);
        mouseRelease(bar, -40, 14);
        verify(root.fixture.setAccessible(bar, "Volume", 0.25));
        compare(bar.stored, 0.25);
        bar.stored = 0.75;
        compare(bar.value, 0.75);
    }

    function test_eachParagraphOfANoteRunsAsItsScriptDoes() {
        const editor = root.make(note).edit;
        for (const text of ["שלום\nHello (1)", "Hello (1)\nשלום"]) {
            editor.text = text;
            const hello = editor.positionToRectangle(text.indexOf("H"));
            const shalom = editor.positionToRectangle(text.indexOf("ש"));
            verify(hello.x < 20 && shalom.x > 180, text);
        }
    }

    function test_noteTakesBackWhatIsTooLong() {
        const editor = root.make(note);
        editor.edited.connect(text => editor.note = text);
        editor.maxLength = 3;
        editor.edit.text = "abc";
        editor.edit.forceActiveFocus();
        editor.edit.cursorPosition = 2;
        keyClick("x");
        verify(editor.isTooLong);
        tryCompare(editor.edit, "text", "abc");
        compare(editor.edit.cursorPosition, 2);
    }

    function test_escapeEmptiesAFieldBeforeItLeaves() {
        const form = root.make(entry);
        keyClick(Qt.Key_Escape);
        compare(root.Window.activeFocusItem?.["text"], "");
        compare(form.escapes, 0);
        keyClick(Qt.Key_Escape);
        compare(form.escapes, 1);
    }

    function test_listIsOneStopForTab() {
        const rows = root.makeList(40);
        root.go([Qt.Key_Tab], "row0a");
        root.go([Qt.Key_Right, Qt.Key_Right], "row0b");
        root.go([Qt.Key_Down, Qt.Key_Down], "row2a"); // there b is disabled
        root.go([Qt.Key_Tab], "after");
        root.go([Qt.Key_Backtab], "row2a");
        root.go([Qt.Key_Backtab], "before");
        root.go([Qt.Key_Tab, Qt.Key_End], "row39a");
        root.go([Qt.Key_Down, Qt.Key_PageUp], "row36a");
        root.go([Qt.Key_Home, Qt.Key_PageUp, Qt.Key_PageDown], "row4a");
        root.go([Qt.Key_Up, Qt.Key_Tab, Qt.Key_Tab], "row3c"); // which needs the arrows: Tab goes along the row
        root.go([Qt.Key_Tab], "after");
        rows.model.remove(0, 40);
        wait(30);
        root.go([Qt.Key_Backtab], "before");
    }

    function test_rowsThatComeAndGoLeaveTheKeyboardWhereItIs() {
        const rows = root.makeList(3);
        root.go([Qt.Key_Tab, Qt.Key_Down, Qt.Key_Right], "row1b");
        rows.model.insert(0, { name: "first", buttons: 2 });
        wait(30);
        root.go([], "row1b");
        rows.model.remove(1);
        rows.model.setProperty(1, "buttons", 1); // row1 loses the button
        root.go([], "row1a");
        rows.model.remove(1);
        root.go([], "row2a");
        rows.model.insert(0, { name: "all", buttons: 3 }); // which can be selected as a whole
        root.go([Qt.Key_Up, Qt.Key_Up, Qt.Key_Left], "all");
        rows.model.clear();
        root.go([], "after");
    }

    function test_areaScrollsByWheelBarAndKeyboard() {
        const scrolling = root.make(area);
        const place = () => scrolling.content[0].mapToItem(scrolling, 0, 0).y;
        mouseWheel(scrolling, 50, 50, 0, -120);
        compare(place(), -60);
        mousePress(root.Window.contentItem, 210, 20);
        mouseMove(root.Window.contentItem, 210, 400);
        mouseRelease(root.Window.contentItem, 210, 400);
        compare(place(), 150 - 20 * scrolling.content[0].height);
        for (let step = 0; step < 20; ++step) {
            keyClick(Qt.Key_Tab);
        }
        verify(root.Window.activeFocusItem.mapToItem(scrolling, 0, 0).y <= 150 - 30);
        keyClick(Qt.Key_Home, Qt.ControlModifier);
        compare(place(), 0);
        keyClick(Qt.Key_PageDown);
        compare(place(), -135);
    }

    height: 200
    name: "Controls"
    visible: true
    when: windowShown
    width: 400
}
