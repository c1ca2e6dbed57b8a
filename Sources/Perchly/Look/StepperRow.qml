import QtQuick
import Perchly.Look

/// A whole number in words, with buttons that decrease and increase it.
RangeControl {
    id: root

    Accessible.role: Accessible.SpinBox
    stepSize: 1

    DigitText {
        anchors.verticalCenter: parent.verticalCenter
        size: 13
        text: root.label
    }
    RoundedRect {
        anchors.right: parent.right
        color: Qt.rgba(1, 1, 1, 0.1)
        height: 28
        radius: 8
        width: 69

        IconButton {
            activeFocusOnTab: false
            height: 28
            size: 12
            subject: root.label
            symbol: "minus"
            toolTip: qsTr("Less")
            usable: root.current > root.from
            width: 34

            onActivated: root.ask(root.current - 1)
        }
        Rectangle {
            anchors.centerIn: parent
            color: Theme.line
            height: 16
            width: 1
        }
        IconButton {
            activeFocusOnTab: false
            anchors.right: parent.right
            height: 28
            size: 12
            subject: root.label
            symbol: "plus"
            toolTip: qsTr("More")
            usable: root.current < root.to
            width: 34

            onActivated: root.ask(root.current + 1)
        }
        FocusRing {
            anchors.margins: -3
            radius: 10
            shown: root.activeFocus
        }
    }
}
