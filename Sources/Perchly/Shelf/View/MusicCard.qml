import QtQuick
import Perchly.Look
import Perchly.Shelf

/// The current track, its controls, and a button that opens the music application.
CardBody {
    id: root

    Column {
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        spacing: 10

        SpokenLabel {
            id: title

            font.pixelSize: 12
            font.weight: Font.Medium
            height: 16
            text: root.model.musicTitle
            width: parent.width

            ToolTipArea {
                text: title.truncated ? root.model.musicTitle : ""
            }
        }
        Row {
            spacing: 5

            MusicControls {
                id: controls

                model: root.model
            }
            Item {
                height: controls.height
                width: open.width + 14

                TextButton {
                    id: open

                    anchors.centerIn: parent
                    color: Qt.rgba(1, 1, 1, 0.85)
                    plateMargin: 5
                    size: 10
                    text: qsTr("Open Music")
                    onActivated: root.model.music()
                }
            }
        }
    }
}
