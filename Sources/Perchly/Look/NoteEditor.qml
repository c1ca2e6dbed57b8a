import QtQuick
import Perchly.Look

/// A multi-line text, edited in place. The wheel and the cursor scroll it; Tab goes to the next
/// control.
Flickable {
    id: root

    /// The accessible name.
    required property string label
    /// Shown while there is no text.
    property string placeholder: ""
    /// The text. Bind it; `edited` reports the user's changes.
    property string note: ""
    readonly property alias edit: edit
    /// Edits that make the note longer than this are undone, with a warning. A longer note may
    /// only shrink. Qt lays out the whole text at each keystroke, which takes 25 ms at this length.
    property int maxLength: 20000
    property bool isTooLong: false
    readonly property real line: hint.implicitHeight
    /// True while `note`, not the user, changes the text. The editor normalises blanks and line
    /// ends, so its text may differ slightly from `note`.
    property bool filling: false

    signal edited(note: string)
    /// The user pressed a button inside the text.
    signal pressed()

    function fill() {
        if (edit.text !== root.note) {
            root.filling = true;
            edit.text = root.note;
            root.filling = false;
        }
    }
    function takeBack() {
        const fromEnd = edit.length - edit.cursorPosition;
        root.fill();
        edit.cursorPosition = Math.max(0, edit.length - fromEnd);
    }
    function follow(cursor: rect) {
        if (cursor.y < root.contentY) {
            root.contentY = cursor.y;
        } else if (cursor.y + cursor.height > root.contentY + root.height) {
            root.contentY = cursor.y + cursor.height - root.height;
        }
    }

    boundsBehavior: Flickable.StopAtBounds
    clip: true
    contentHeight: Math.max(root.height, edit.implicitHeight)
    contentWidth: root.width
    // A drag selects text; only the wheel scrolls.
    interactive: false

    onNoteChanged: root.fill()

    Timer {
        id: undoing

        interval: 0

        onTriggered: root.takeBack()
    }
    WheelHandler {
        acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad

        onWheel: wheel => {
            const last = root.contentHeight - root.height;
            root.contentY = Math.max(0, Math.min(last, root.contentY - wheel.angleDelta.y / 4));
        }
    }

    TextEdit {
        id: edit

        Accessible.description: root.placeholder
        Accessible.multiLine: true
        Accessible.name: root.label
        Accessible.role: Accessible.EditableText
        activeFocusOnTab: true
        color: Theme.text
        font.family: Theme.family
        font.pixelSize: 12
        height: root.contentHeight
        leftPadding: 3
        persistentSelection: true
        rightPadding: 3
        selectByMouse: true
        selectedTextColor: Theme.text
        selectionColor: Qt.rgba(1, 1, 1, edit.activeFocus ? 0.28 : 0.14)
        textFormat: TextEdit.PlainText
        width: root.width
        wrapMode: TextEdit.Wrap

        Keys.onBacktabPressed: edit.nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason)
        Keys.onTabPressed: edit.nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason)
        onActiveFocusChanged: {
            if (edit.activeFocus && Theme.keysUsed && edit.cursorPosition === 0) {
                edit.cursorPosition = edit.length;
            }
        }
        onCursorRectangleChanged: root.follow(edit.cursorRectangle)
        onTextChanged: {
            direction.apply();
            if (root.filling) {
                return;
            }
            root.isTooLong = edit.length > Math.max(root.maxLength, root.note.length);
            if (root.isTooLong) {
                undoing.start(); // not during the insertion
            } else {
                root.edited(edit.text);
            }
        }

        ParagraphDirection {
            id: direction

            document: edit.textDocument
        }
        TapHandler {
            onPressedChanged: {
                if (pressed) {
                    root.pressed();
                }
            }
        }
        HoverHandler {
            cursorShape: Qt.IBeamCursor
        }
    }
    Label {
        id: hint

        color: Theme.grey
        font.pixelSize: 12
        text: root.placeholder
        visible: edit.length === 0 && edit.preeditText === ""
        x: 3
    }
    Rectangle {
        color: Theme.floating
        height: remark.height
        visible: root.isTooLong
        width: root.width
        y: root.contentY + root.height - remark.height

        CaptionText {
            id: remark

            Accessible.role: Accessible.AlertMessage
            color: Theme.orange
            leftPadding: 3
            text: qsTr("Too long: a note holds at most %1 characters.").arg(root.maxLength.toLocaleString(Qt.locale(), "f", 0))
            width: root.width
        }
    }
}
