import QtQuick
import Perchly.Look
import Perchly.Productivity
import Perchly.Stores

/// One entry of the clipboard history.
ListRow {
    id: root

    required property Productivity tools
    required property ShelfExtras extras
    required property var row

    label.color: root.row.isBlank ? Theme.grey : Theme.text
    label.font.italic: root.row.isBlank
    label.lineHeight: 1.1
    label.wrapMode: Text.Wrap
    text: root.row.label

    leading: ClipPicture {
        clip: root.row.id
        implicitHeight: 50
        implicitWidth: 70
        history: root.tools.clipboard
        visible: root.row.isImage && found
    }

    RowButton {
        id: pin

        done: qsTr("Pinned")
        subject: root.text
        text: qsTr("Pin")
        visible: !root.row.isImage

        onActivated: {
            if (root.extras.snippets.pin(root.row.text)) {
                pin.confirm();
            }
        }
    }
    RowButton {
        subject: root.text
        text: qsTr("Copy")

        onActivated: root.tools.clipboard.copyClip(root.row.id)
    }
    IconButton {
        size: 12
        subject: root.text
        symbol: "xmark"
        toolTip: qsTr("Delete")

        onActivated: root.tools.clipboard.remove(root.row.id)
    }
}
