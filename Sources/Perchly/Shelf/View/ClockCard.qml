import QtQuick
import Perchly.Look
import Perchly.Shelf

/// The time of day and the date.
CardBody {
    id: root

    WallTime {
        id: now

        running: root.model.expanded && root.visible
    }
    Column {
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        spacing: 6

        Item {
            Accessible.name: now.time
            Accessible.role: Accessible.StaticText
            height: 30
            width: parent.width

            DigitText {
                anchors.verticalCenter: parent.verticalCenter
                size: 25
                text: now.time
                weight: Font.Medium
            }
        }
        SpokenLabel {
            color: Theme.shelfGrey
            font.pixelSize: 10
            text: now.day
            width: parent.width
        }
    }
}
