import QtQuick
import Perchly.Look
import Perchly.Shelf

/// The focus timer: the remaining time of a session, or the length of the next one.
CardBody {
    id: root

    readonly property bool counting: root.model.seconds >= 1

    Column {
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        spacing: 8

        Item {
            Accessible.name: time.text
            Accessible.role: Accessible.StaticText
            height: 30
            width: parent.width

            DigitText {
                id: time

                anchors.verticalCenter: parent.verticalCenter
                size: 27
                text: root.counting ? root.status.time : root.preferences.focusMinutes + ":00"
                weight: Font.Medium
            }
        }
        CardButton {
            text: root.counting ? qsTr("Stop focus") : qsTr("Start focus")
            onActivated: {
                if (root.counting) {
                    root.model.endFocus();
                } else {
                    root.model.focus();
                }
            }
        }
    }
}
