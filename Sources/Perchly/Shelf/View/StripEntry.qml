import QtQuick
import Perchly.Look
import Perchly.Stores
import Perchly.Shelf

/// An application or a shortcut on the strip.
PressButton {
    id: root

    required property shelfItem entry
    required property ShellActions shell
    /// Screen pixels per point.
    required property real pictureScale

    focusInset: 0
    height: 88
    label: root.entry.name
    plate: Qt.rgba(1, 1, 1, root.containsMouse ? 0.05 : 0)
    plateRadius: 12
    toolTip: qsTr("Open %1").arg(root.entry.name)
    width: StripPaging.entryWidth

    onActivated: root.shell.launch(root.entry.id)

    ApplicationPicture {
        id: icon

        height: 50
        path: root.entry.applicationPath
        pictureScale: root.pictureScale
        visible: root.entry.kind !== "shortcut"
        width: 50
        x: 8
        y: 8
    }
    Symbol {
        anchors.centerIn: icon
        color: Theme.purple
        name: root.entry.kind === "shortcut" ? "square.stack.3d.up.fill" : ""
        size: 24
    }
    Label {
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.top: icon.bottom
        anchors.topMargin: 9
        font.pixelSize: 10
        font.weight: Font.Medium
        horizontalAlignment: Text.AlignHCenter
        text: root.entry.name
        width: Math.min(implicitWidth, root.width)
    }
}
