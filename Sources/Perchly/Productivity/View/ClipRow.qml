import QtQuick
import QtQuick.Layouts
import Perchly.Look
import Perchly.Productivity
import Perchly.Stores

/// One entry of the clipboard history.
RowCard {
    id: root

    required property Productivity tools
    required property var row

    signal pinned()
    signal copied()
    signal removed()

    /// Shows that the clip is pinned.
    function confirmPin() {
        pin.confirm();
    }

    Accessible.name: words.text
    Accessible.role: Accessible.ListItem
    padding: 10
    radius: 10

    RowLayout {
        spacing: 8
        width: parent.width

        ClipPicture {
            clip: root.row.id
            implicitHeight: 50
            implicitWidth: 70
            history: root.tools.clipboard
            visible: root.row.isImage && found
        }
        Label {
            id: words

            Accessible.ignored: true
            Layout.fillWidth: true
            color: root.row.isBlank ? Theme.grey : Theme.text
            font.italic: root.row.isBlank
            font.pixelSize: 13
            lineHeight: 1.1
            maximumLineCount: 3
            text: root.row.label
            wrapMode: Text.Wrap
        }
        PushButton {
            id: pin

            Accessible.description: words.text
            done: "Pinned"
            size: 12
            text: "Pin"
            visible: !root.row.isImage

            onActivated: root.pinned()
        }
        PushButton {
            Accessible.description: words.text
            size: 12
            text: "Copy"

            onActivated: root.copied()
        }
        IconButton {
            size: 12
            subject: words.text
            symbol: "xmark"
            toolTip: "Delete"

            onActivated: root.removed()
        }
    }
}
