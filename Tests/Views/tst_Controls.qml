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

    Component {
        id: picker

        MenuPicker {
            id: chooser

            property var asked: []

            currentIndex: 3
            focus: true
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
            focus: true
            label: "Volume"
            width: 200

            onMoved: value => bar.stored = value
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
            property alias field: field

            focus: true
            height: 40
            width: 200

            Keys.onEscapePressed: ++form.escapes

            TextEntry {
                id: field

                focus: true
                placeholder: "Name"
                width: 200
            }
        }
    }

    Component {
        id: adder

        PushButton {
            done: "Added"
            text: "Add to shelf"

            onActivated: confirm()
        }
    }

    Component {
        id: area

        ScrollArea {
            height: 150
            width: 200

            Repeater {
                id: rows

                model: 20

                PushButton {
                    required property int index

                    text: "Button " + index
                    width: 200
                }
            }
        }
    }

    Component {
        id: list

        FocusScope {
            id: around

            property alias rows: rows
            readonly property string at: root.Window.activeFocusItem?.["label"] ?? ""

            focus: true
            height: 200
            width: 400

            PushButton {
                id: first

                focus: true
                text: "before"
            }
            ScrollList {
                id: rows

                height: 150
                label: "Rows"
                model: 40
                placeholder: "Nothing yet."
                width: 400
                y: 40

                delegate: RowCard {
                    id: row

                    required property int index

                    height: 30
                    width: 380

                    PushButton {
                        text: "a" + row.index
                    }
                    PushButton {
                        enabled: row.index !== 2
                        text: "b" + row.index
                    }
                    ValueSlider {
                        current: 0.5
                        label: "c" + row.index
                        visible: row.index === 3
                    }
                }
            }
            PushButton {
                text: "after"
            }
        }
    }

    Component {
        id: changingList

        ScrollList {
            id: changing

            readonly property Item holder: root.Window.activeFocusItem
            readonly property string at: changing.holder?.["label"] ?? changing.holder?.Accessible.name ?? ""

            focus: true
            height: 150
            label: "Rows"
            width: 400

            delegate: RowCard {
                id: row

                required property string name
                required property int buttons
                required property bool open

                Accessible.name: row.name
                height: row.open ? 90 : 30
                selectable: row.buttons === 3
                width: 380

                Repeater {
                    model: row.buttons

                    PushButton {
                        required property int index

                        text: row.name + index
                        visible: index === 0 || row.open || row.buttons === 3
                    }
                }
            }
            model: ListModel {}
        }
    }

    function changing(rows: var): var {
        const made = root.make(changingList);
        for (const row of rows) {
            made.model.append({ name: row[0], buttons: row[1], open: row[2] ?? false });
        }
        return made;
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

    function test_aLongListStaysInsideItsWindow() {
        const chooser = root.make(picker);
        for (const y of [0, 100, 170]) {
            chooser.y = y;
            keyClick(Qt.Key_Space);
            verify(chooser.open);
            const list = root.Window.activeFocusItem.ListView.view;
            const top = list.mapToItem(null, 0, 0).y;
            verify(top >= 0 && top + list.height <= root.Window.height, `from ${top}, ${list.height} high`);
            verify(list.contentHeight > list.height);
            keyClick(Qt.Key_End);
            compare(list.currentItem.y + list.currentItem.height, list.contentY + list.height);
            keyClick(Qt.Key_Escape);
            verify(!chooser.open);
            verify(chooser.activeFocus);
        }
        compare(chooser.asked, []);
    }

    function test_aListIsChosenFromByLetterKeyAndPointer() {
        const chooser = root.make(picker);
        keyClick(Qt.Key_Down);
        keyClick("b"); // b1, and once more b27
        keyClick("b");
        keyClick(Qt.Key_Up);
        keyClick(Qt.Key_Return);
        compare(chooser.asked, [0]);
        keyClick(Qt.Key_Space);
        mouseClick(root.Window.contentItem, 20, 60); // 4 below the picker, 5 of padding: the first row shown
        compare(chooser.asked.length, 2);
        keyClick(Qt.Key_Space);
        mouseClick(root.Window.contentItem, 300, 100);
        verify(!chooser.open);
        compare(chooser.asked.length, 2);
    }

    function test_aSliderIsSetByKeysPointerAndAssistivePrograms() {
        const bar = root.make(slider);
        keyClick(Qt.Key_Right);
        fuzzyCompare(bar.stored, 0.55, 1e-9);
        keyClick(Qt.Key_End);
        keyClick(Qt.Key_Right);
        compare(bar.stored, 1);
        mousePress(bar, 100, 14);
        fuzzyCompare(bar.stored, 0.5, 0.01);
        mouseMove(bar, -40, 14);
        compare(bar.stored, 0);
        mouseRelease(bar, -40, 14);
        verify(root.fixture.setAccessible(bar, "Volume", 0.25));
        compare(bar.stored, 0.25);
        bar.stored = 0.75;
        compare(bar.value, 0.75);
        compare(bar.current, 0.75);
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

    function test_aNoteTakesBackWhatIsTooLong() {
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
        for (const letter of "name") {
            keyClick(letter);
        }
        compare(form.field.text, "name");
        keyClick(Qt.Key_Escape);
        compare(form.field.text, "");
        compare(form.escapes, 0);
        keyClick(Qt.Key_Escape);
        compare(form.escapes, 1);
    }

    function test_aButtonShowsForAMomentThatItWasPressed() {
        const button = root.make(adder);
        const shown = () => Array.from(button.content).find(item => item.visible && item.text)?.text;
        compare(shown(), "Add to shelf");
        keyClick(Qt.Key_Space);
        compare(shown(), "Added");
        tryVerify(() => shown() === "Add to shelf");
    }

    function test_aListIsOneStopForTab() {
        const scope = root.make(list);
        const go = (keys, expected) => {
            for (const key of keys) {
                keyClick(key, key === Qt.Key_Backtab ? Qt.ShiftModifier : Qt.NoModifier);
            }
            compare(scope.at, expected);
        };
        go([], "before");
        go([Qt.Key_Tab], "a0");
        go([Qt.Key_Right, Qt.Key_Right], "b0");
        go([Qt.Key_Down, Qt.Key_Down], "a2"); // there b is disabled
        go([Qt.Key_Tab], "after");
        go([Qt.Key_Backtab], "a2");
        go([Qt.Key_Backtab], "before");
        go([Qt.Key_Tab, Qt.Key_Up, Qt.Key_Left, Qt.Key_Left], "a1");
        go([Qt.Key_End], "a39");
        go([Qt.Key_Down, Qt.Key_PageUp], "a36");
        go([Qt.Key_PageUp, Qt.Key_PageDown], "a37");
        go([Qt.Key_Home, Qt.Key_PageUp, Qt.Key_PageDown, Qt.Key_Up], "a3");
        go([Qt.Key_Tab, Qt.Key_Tab], "c3"); // which needs the arrows: Tab goes along the row
        go([Qt.Key_Tab], "after");
        scope.rows.model = 2; // what had the keyboard is gone
        go([Qt.Key_Backtab], "b1");
        scope.rows.model = 0;
        go([Qt.Key_Tab], "before");
        go([Qt.Key_Tab], "after");
        verify(root.fixture.accessibleWithin(scope).includes("StaticText: Nothing yet."));
        scope.rows.visible = Qt.binding(() => scope.rows.count > 0);
        scope.rows.model = 1;
        go([Qt.Key_Backtab], "b0");
        scope.rows.model = 0; // while a row has the keyboard
        tryCompare(scope, "at", "after");
    }

    function test_rowsThatComeAndGoLeaveTheKeyboardWhereItIs() {
        const rows = root.changing([["a", 1], ["b", 2, true], ["c", 1]]);
        rows.focusRow(1, 1);
        compare(rows.at, "b1");
        rows.model.insert(0, { name: "first", buttons: 1, open: false });
        wait(30);
        compare(rows.at, "b1");
        rows.model.remove(1);
        rows.model.setProperty(1, "open", false); // hides the button
        tryCompare(rows, "at", "b0");
        rows.model.remove(1);
        tryCompare(rows, "at", "c0");
        rows.model.remove(1);
        tryCompare(rows, "at", "first0");
    }

    function test_aRowWithoutControlsTakesTheKeyboardItself() {
        const names = Array.from({ length: 12 }, (_, index) => ["r" + index, 0]);
        const rows = root.changing([["top", 1], ...names, ["end", 3]]);
        rows.focusRow(0, 0);
        for (const expected of ["r0", "r1"]) {
            keyClick(Qt.Key_Down);
            compare(rows.at, expected);
        }
        keyClick(Qt.Key_End);
        compare(rows.at, "end"); // which can be selected as a whole
        keyClick(Qt.Key_Right);
        compare(rows.at, "end0");
        keyClick(Qt.Key_Left);
        compare(rows.at, "end");
        keyClick(Qt.Key_Left);
        compare(rows.at, "end2");
        keyClick(Qt.Key_Home);
        compare(rows.at, "top0");
    }

    function test_aRowThatGrowsIsSeenWhole() {
        const rows = root.changing([["a", 1], ["b", 1], ["c", 1], ["d", 1]]);
        rows.view.forceLayout();
        const last = rows.view.itemAtIndex(3);
        rows.follow(last);
        rows.model.setProperty(3, "open", true);
        tryVerify(() => last.y + last.height <= rows.view.contentY + rows.height);
    }

    function test_anAreaScrollsByWheelBarAndKeyboard() {
        const scrolling = root.make(area);
        const place = () => scrolling.content[0].mapToItem(scrolling, 0, 0).y;
        const last = 150 - 20 * scrolling.content[0].height;
        mouseWheel(scrolling, 50, 50, 0, -120);
        compare(place(), -60);
        mouseWheel(scrolling, 50, 50, 0, 1200);
        compare(place(), 0);
        mousePress(root.Window.contentItem, 210, 5);
        mouseMove(root.Window.contentItem, 210, 400);
        compare(place(), last);
        mouseMove(root.Window.contentItem, 210, 5);
        mouseRelease(root.Window.contentItem, 210, 5);
        compare(place(), 0);
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
