import QtQuick
import Perchly.Look
import Perchly.Shelf

/// The collapsed shelf at a side: a strip with the program's name along it.
Item {
    id: root

    required property CompactStatus status
    required property color statusColor
    required property string edge

    Column {
        anchors.centerIn: parent
        spacing: 8

        Symbol {
            anchors.horizontalCenter: parent.horizontalCenter
            bold: true
            color: root.statusColor
            name: root.status.symbol
            size: 15
        }
        Item {
            anchors.horizontalCenter: parent.horizontalCenter
            height: 60
            width: 20

            Label {
                anchors.centerIn: parent
                // Compensates for the letter spacing after the last letter.
                anchors.verticalCenterOffset: root.edge === "left" ? 0.75 : -0.75
                elide: Text.ElideNone
                font.bold: true
                font.letterSpacing: 1.5
                font.pixelSize: 9
                rotation: root.edge === "left" ? 90 : -90
                text: "PERCHLY"
            }
        }
        Symbol {
            anchors.horizontalCenter: parent.horizontalCenter
            bold: true
            color: root.statusColor
            name: root.edge === "left" ? "chevron.right" : "chevron.left"
            size: 10
        }
    }
}
