import QtQuick
import Perchly.Look
import Perchly.Shelf

/// A note that is kept as it is typed. It has the keyboard only after the person went there.
CardBody {
    id: root

    /// Leaves the note where the person is done with it.
    function leave() {
        edit.focus = false;
    }

    Connections {
        target: root.model

        function onExpandedChanged() {
            if (!root.model.expanded) {
                edit.deselect();
                root.leave();
            }
        }
    }
    Connections {
        target: root.preferences

        function onNoteChanged() {
            if (edit.text !== root.preferences.note) {
                edit.text = root.preferences.note;
            }
        }
    }

    Flickable {
        id: page

        boundsBehavior: Flickable.StopAtBounds
        clip: true
        contentHeight: Math.max(page.height, edit.implicitHeight)
        contentWidth: page.width
        // Whole lines, so that none is cut in two.
        height: Math.max(1, Math.floor(root.height / page.line)) * page.line
        // A drag selects; the wheel scrolls.
        interactive: false
        width: root.width + 6
        x: -3

        readonly property real line: placeholder.implicitHeight

        function follow(cursor: rect) {
            if (cursor.y < page.contentY) {
                page.contentY = cursor.y;
            } else if (cursor.y + cursor.height > page.contentY + page.height) {
                page.contentY = cursor.y + cursor.height - page.height;
            }
        }

        WheelHandler {
            onWheel: wheel => {
                const last = page.contentHeight - page.height;
                page.contentY = Math.max(0, Math.min(last, page.contentY - wheel.angleDelta.y / 4));
            }
        }

        TextEdit {
            id: edit

            Accessible.description: placeholder.text
            Accessible.multiLine: true
            Accessible.name: "Quick note"
            Accessible.role: Accessible.EditableText
            activeFocusOnTab: true
            color: Theme.text
            font.family: Theme.family
            font.pixelSize: 12
            height: page.contentHeight
            leftPadding: 3
            rightPadding: 3
            persistentSelection: true
            selectByMouse: true
            selectedTextColor: Theme.text
            selectionColor: Qt.rgba(1, 1, 1, edit.activeFocus ? 0.28 : 0.14)
            textFormat: TextEdit.PlainText
            width: page.width
            wrapMode: TextEdit.Wrap

            Component.onCompleted: edit.text = root.preferences.note
            Keys.onBacktabPressed: edit.nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason)
            Keys.onTabPressed: edit.nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason)
            onCursorRectangleChanged: page.follow(edit.cursorRectangle)
            onTextChanged: {
                if (edit.text !== root.preferences.note) {
                    root.preferences.note = edit.text;
                }
            }

            TapHandler {
                onPressedChanged: {
                    if (pressed) {
                        root.shell.takeKeyboard();
                    }
                }
            }
            HoverHandler {
                cursorShape: Qt.IBeamCursor
            }
        }
    }
    Label {
        id: placeholder

        color: Theme.grey
        font.pixelSize: 12
        text: "A thought to keep…"
        visible: edit.length === 0 && edit.preeditText === ""
    }
}
