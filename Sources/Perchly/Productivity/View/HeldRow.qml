import QtQuick
import QtQuick.Layouts
import Perchly.Look
import Perchly.Stores
import Perchly.Extensions

/// One held file or link and its actions. Space shows a preview if the row itself has the keyboard.
DragPlate {
    id: root

    required property Productivity tools
    required property ShelfExtras extras
    required property var row

    readonly property bool isFile: root.row.isFile

    function preview() {
        root.extras.togglePreview(root.row.url, root.tools.held.urls);
    }

    function copy() {
        root.tools.clipboard.copyItems([root.row.url]);
    }

    Accessible.name: root.label
    Accessible.role: Accessible.ListItem
    label: root.row.label
    selectable: true
    urls: [root.row.url]

    Keys.onPressed: event => {
        event.accepted = event.matches(StandardKey.Copy);
        if (event.accepted) {
            root.copy();
        }
    }
    Keys.onSpacePressed: event => {
        event.accepted = root.selected && root.isFile;
        if (event.accepted && !event.isAutoRepeat) {
            root.preview();
        }
    }

    ColumnLayout {
        spacing: 7
        width: parent.width

        RowLayout {
            Layout.fillWidth: true
            spacing: 9

            ItemPicture {
                color: Theme.accent
                implicitHeight: 24
                implicitWidth: 24
                tools: root.tools
                url: root.row.url
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

            // A longer language needs a second line.
            Flow {
                Layout.fillWidth: true
                spacing: 7

                RowButton {
                    subject: root.label
                    text: qsTr("Preview")
                    visible: root.isFile

                    onActivated: root.preview()
                }
                RowButton {
                    subject: root.label
                    text: qsTr("Reveal")
                    visible: root.isFile

                    onActivated: root.tools.reveal(root.row.url)
                }
                RowButton {
                    subject: root.label
                    text: qsTr("Copy path / link")

                    onActivated: root.tools.clipboard.copyPath(root.row.url)
                }
                RowButton {
                    subject: root.label
                    text: qsTr("Copy image")
                    usable: root.row.isPicture

                    onActivated: root.tools.clipboard.copyImage(root.row.url)
                }
            }
            ShareMenu {
                subject: root.label
                tools: root.tools
                url: root.row.url
            }
            RowButton {
                subject: root.label
                text: qsTr("Remove")

                onActivated: root.tools.held.remove(root.row.url)
            }
        }
    }
}
