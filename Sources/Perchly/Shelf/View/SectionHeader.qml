import QtQuick
import Perchly.Look
import Perchly.Stores

/// The line above the strip.
Item {
    id: root

    required property ShellActions shell

    implicitHeight: 16

    SpokenLabel {
        anchors.left: parent.left
        anchors.verticalCenter: parent.verticalCenter
        color: Theme.shelfGrey
        font.letterSpacing: 2
        font.pixelSize: 10
        font.weight: Font.DemiBold
        text: qsTr("YOUR SHELF")
    }
    TextButton {
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        color: Theme.shelfGrey
        symbol: "gear.alt"
        text: qsTr("Settings")
        onActivated: root.shell.showSettings()
    }
}
