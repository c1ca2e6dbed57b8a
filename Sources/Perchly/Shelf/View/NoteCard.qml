import QtQuick
import Perchly.Look
import Perchly.Shelf

/// The note, stored as it is typed. Takes the keyboard only when the user moves it there.
CardBody {
    id: root

    /// Gives up the keyboard.
    function leave() {
        editor.edit.focus = false;
    }

    readonly property bool typing: editor.edit.activeFocus && root.Window.active

    Component.onDestruction: root.model.setTyping(false)
    onTypingChanged: root.model.setTyping(root.typing)

    Connections {
        target: root.model

        function onExpandedChanged() {
            if (!root.model.expanded) {
                editor.edit.deselect();
                root.leave();
            }
        }
    }

    NoteEditor {
        id: editor

        // Whole lines, so that none is cut off.
        height: Math.max(1, Math.floor(root.height / editor.line)) * editor.line
        label: qsTr("Quick note")
        note: root.preferences.note
        placeholder: qsTr("A thought to keep…")
        width: root.width + 6
        x: -3

        onEdited: note => root.preferences.note = note
        onPressed: root.shell.takeKeyboard()
    }
}
