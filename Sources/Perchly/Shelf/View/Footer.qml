import QtQuick
import Perchly.Look
import Perchly.Stores

/// The open shelf's last line: the battery and the quit button.
Item {
    id: root

    required property ShelfExtras extras
    required property ShellActions shell

    implicitHeight: 16

    RoundedRect {
        id: dot

        anchors.left: parent.left
        anchors.verticalCenter: parent.verticalCenter
        color: Theme.shelfAccent
        height: 5
        radius: 2.5
        width: 5
    }
    SpokenLabel {
        anchors.left: dot.right
        anchors.leftMargin: 8
        anchors.right: quit.left
        anchors.rightMargin: 20
        anchors.verticalCenter: parent.verticalCenter
        color: Theme.shelfGrey
        font.pixelSize: 10
        text: root.extras.battery.line
    }
    TextButton {
        id: quit

        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        color: Theme.shelfGrey
        size: 10
        text: qsTr("Quit")
        onActivated: root.shell.terminate()
    }
}
