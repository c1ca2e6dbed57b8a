import QtQuick
import Perchly.Look

/// A message that can be selected and copied.
TextEdit {
    id: root

    Accessible.name: root.text
    Accessible.readOnly: true
    Accessible.role: Accessible.AlertMessage
    activeFocusOnTab: true
    color: Theme.orange
    font.family: Theme.family
    font.pixelSize: 12
    readOnly: true
    selectByMouse: true
    selectedTextColor: Theme.text
    selectionColor: Qt.rgba(1, 1, 1, 0.26)
    textFormat: TextEdit.PlainText
    wrapMode: TextEdit.Wrap

    onActiveFocusChanged: {
        if (!root.activeFocus) {
            root.deselect();
        }
    }

    HoverHandler {
        cursorShape: Qt.IBeamCursor
    }
}
