import QtQuick
import QtQuick.Layouts
import Perchly.Look
import Perchly.Stores

/// One held file or link, with what can be done with it. While the row itself has the keyboard, the
/// space bar shows a preview.
DragPlate {
    id: root

    required property Productivity tools
    required property ShelfExtras extras
    required property var row

    readonly property bool isFile: root.row.isFile
    readonly property bool takesKeyboard: true
    readonly property bool selectable: true

    signal removed()

    function preview() {
        root.extras.togglePreview(root.row.url, root.tools.held.urls);
    }

    function copy() {
        root.tools.clipboard.copyItems([root.row.url]);
    }

    Accessible.name: root.label
    Accessible.role: Accessible.ListItem
    label: root.row.label
    urls: [root.row.url]

    Keys.onPressed: event => {
        event.accepted = event.matches(StandardKey.Copy);
        if (event.accepted) {
            root.copy();
        }
    }
    Keys.onSpacePressed: event => {
        event.accepted = root.activeFocus && root.isFile;
        if (event.accepted && !event.isAutoRepeat) {
            root.preview();
        }
    }
    onClicked: root.forceActiveFocus(Qt.MouseFocusReason)

    ColumnLayout {
        spacing: 9
        width: parent.width

        RowLayout {
            Layout.fillWidth: true
            spacing: 9

            Symbol {
                color: Theme.mint
                name: root.isFile ? "doc" : "link"
                size: 14
            }
            Label {
                Accessible.ignored: true
                Layout.fillWidth: true
                elide: Text.ElideMiddle
                font.pixelSize: 13
                text: root.label
            }
        }
        RowLayout {
            Layout.fillWidth: true
            spacing: 7

            PushButton {
                Accessible.description: root.label
                size: 12
                text: "Preview"
                visible: root.isFile

                onActivated: root.preview()
            }
            PushButton {
                Accessible.description: root.label
                size: 12
                text: "Reveal"
                visible: root.isFile

                onActivated: root.tools.reveal(root.row.url)
            }
            PushButton {
                Accessible.description: root.label
                size: 12
                text: "Copy path / link"

                onActivated: root.tools.clipboard.copyPath(root.row.url)
            }
            PushButton {
                Accessible.description: root.label
                enabled: root.row.isPicture
                size: 12
                text: "Copy image"

                onActivated: root.tools.clipboard.copyImage(root.row.url)
            }
            Item {
                Layout.fillWidth: true
            }
            ShareMenu {
                subject: root.label
                tools: root.tools
                url: root.row.url
            }
            PushButton {
                Accessible.description: root.label
                size: 12
                text: "Remove"

                onActivated: root.removed()
            }
        }
    }
}
