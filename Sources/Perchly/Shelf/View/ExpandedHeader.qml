import QtQuick
import Perchly.Look
import Perchly.Shelf

/// The open shelf's first row, split in two by a camera housing.
Item {
    id: root

    required property CompactStatus status
    required property color statusColor
    required property real notchWidth

    readonly property bool split: root.notchWidth > 0
    readonly property real contentWidth: symbol.width + 10 + brand.width + 10 + word.width

    Symbol {
        id: symbol

        anchors.verticalCenter: parent.verticalCenter
        bold: true
        color: root.statusColor
        name: root.status.symbol
        size: 13
        x: root.split ? 22 : Math.round((root.width - root.contentWidth) / 2)
    }
    Label {
        id: brand

        anchors.left: symbol.right
        anchors.leftMargin: 10
        anchors.verticalCenter: parent.verticalCenter
        font.bold: true
        font.letterSpacing: 3
        font.pixelSize: 10
        text: "PERCHLY"
    }
    StatusText {
        id: word

        anchors.verticalCenter: parent.verticalCenter
        color: root.statusColor
        size: 11
        text: root.status.status
        x: root.split ? root.width - 22 - width : brand.x + brand.width + 7
    }
}
