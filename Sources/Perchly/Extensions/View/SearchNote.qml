import QtQuick
import Perchly.Look

/// The quick note among the search's results.
RoundedRect {
    id: root

    property alias note: editor.note
    readonly property bool editing: editor.edit.activeFocus

    signal edited(note: string)

    color: Theme.row
    radius: 8

    NoteEditor {
        id: editor

        anchors.fill: parent
        anchors.margins: 8
        label: qsTr("Quick note")

        onEdited: note => root.edited(note)
    }
}
