import QtQuick
import Perchly.Look
import Perchly.Stores
import Perchly.Shelf

/// An application or a shortcut on the strip.
PressButton {
    id: root

    required property shelfItem entry
    required property ShellActions shell
    /// Pixels of the screen for one point here.
    required property real pictureScale

    focusInset: 0
    focusRadius: 12
    height: 88
    label: root.entry.name
    toolTip: "Open " + root.entry.name
    width: StripPaging.entryWidth

    onActivated: root.shell.launch(root.entry.id)

    Rectangle {
        anchors.fill: parent
        color: Qt.rgba(1, 1, 1, 0.05)
        radius: 12
        visible: root.containsMouse
    }
    Item {
        id: icon

        height: 50
        width: 50
        x: 8
        y: 8

        Image {
            id: picture

            readonly property int pixels: Math.ceil(50 * root.pictureScale)
            readonly property bool found: picture.status === Image.Ready && picture.implicitWidth > 1

            anchors.fill: parent
            asynchronous: true
            fillMode: Image.PreserveAspectFit
            mipmap: true
            source: root.entry.kind === "application" ? "image://applications/" + encodeURIComponent(root.entry.applicationPath) : ""
            sourceSize.height: picture.pixels
            sourceSize.width: picture.pixels
            visible: picture.found
        }
        Rectangle {
            anchors.fill: parent
            anchors.margins: 3
            color: Qt.rgba(1, 1, 1, 0.06)
            radius: 11
            visible: picture.status === Image.Loading
        }
        Symbol {
            anchors.centerIn: parent
            color: root.entry.kind === "shortcut" ? Theme.purple : Qt.rgba(1, 1, 1, 0.7)
            name: root.entry.kind === "shortcut" ? "square.stack.3d.up.fill" : "app.dashed"
            size: root.entry.kind === "shortcut" ? 24 : 29
            visible: !picture.found && picture.status !== Image.Loading
        }
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
