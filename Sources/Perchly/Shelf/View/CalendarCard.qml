import QtQuick
import Perchly.Look
import Perchly.Shelf

/// Today's date, with a button that opens the calendar.
CardBody {
    id: root

    readonly property string event: root.extras.meetings.firstTitle

    WallTime {
        id: now

        running: root.model.expanded && root.visible
    }

    Item {
        id: date

        Accessible.name: now.date
        Accessible.role: Accessible.StaticText
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        anchors.verticalCenterOffset: -12
        height: 36

        Label {
            id: number

            anchors.verticalCenter: parent.verticalCenter
            font.pixelSize: 32
            font.weight: Font.Medium
            text: now.dayNumber
        }
        Label {
            anchors.baseline: number.baseline
            anchors.left: number.right
            anchors.leftMargin: 7
            anchors.right: parent.right
            color: Qt.rgba(1, 1, 1, 0.75)
            font.pixelSize: 11
            text: now.month
        }
    }
    Item {
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: date.bottom
        anchors.topMargin: 6
        height: 18

        SpokenLabel {
            anchors.left: parent.left
            anchors.right: meetings.left
            anchors.rightMargin: 12
            anchors.verticalCenter: parent.verticalCenter
            color: Theme.shelfGrey
            font.pixelSize: 10
            text: root.event !== "" ? root.event : qsTr("Upcoming meetings")
        }
        TextButton {
            id: meetings

            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            color: Theme.shelfAccent
            plateMargin: 6
            size: 10
            text: qsTr("Meetings")
            onActivated: {
                root.extras.section = "Meetings";
                root.shell.showTools();
            }
        }
    }
}
