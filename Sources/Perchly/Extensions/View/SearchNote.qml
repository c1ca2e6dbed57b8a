import QtQuick
import Perchly.Look

/// The quick note among the search's results.
RoundedRect {
    id: root

    property alias note: editor.note
    /// Whether Return in the search field starts editing.
    property bool first: false
    readonly property bool editing: editor.edit.activeFocus

    signal edited(note: string)

    color: root.first ? Qt.rgba(1, 1, 1, 0.1) : Theme.row
    radius: 8

    NoteEditor {
        id: editor

        anchors.fill: parent
        anchors.margins: 8
        label: qsTr("Quick note")

        onEdited: note => root.edited(note)
    }
}
