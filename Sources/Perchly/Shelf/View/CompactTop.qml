import QtQuick
import Perchly.Look
import Perchly.Shelf

/// The collapsed shelf at the top: the current activity, on both sides of a camera housing.
Item {
    id: root

    required property CompactStatus status
    required property color statusColor
    required property real notchWidth

    readonly property real leftWidth: root.notchWidth > 0 ? 140 : 200

    Symbol {
        id: symbol

        anchors.left: parent.left
        anchors.leftMargin: 16
        anchors.verticalCenter: parent.verticalCenter
        bold: true
        color: root.statusColor
        name: root.status.symbol
        size: 13
    }
    Label {
        anchors.left: symbol.right
        anchors.leftMargin: 8
        anchors.verticalCenter: parent.verticalCenter
        font.pixelSize: 11
        font.weight: Font.Medium
        text: root.status.title
        width: root.leftWidth - 16 - x
    }
    StatusText {
        anchors.right: parent.right
        anchors.rightMargin: 16
        anchors.verticalCenter: parent.verticalCenter
        color: root.statusColor
        size: 10
        text: root.status.status
        weight: Font.Medium
    }
}
