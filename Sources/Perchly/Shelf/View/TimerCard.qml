import QtQuick
import Perchly.Look
import Perchly.Shelf

/// The focus timer: the time left in a session, or how long the next one will be.
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
            text: root.counting ? "Stop focus" : "Start focus"
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
