import QtQuick
import Perchly.Look

/// A plain button with a symbol, a word, or both. Its bounds are those of its content; a faint
/// plate extends a little further while the pointer is over it.
PressButton {
    id: root

    property string symbol: ""
    property string text: ""
    property color color: Theme.text
    property int size: 11
    property int plateMargin: 7

    label: root.text
    focusInset: -root.plateMargin + 1
    focusRadius: 8
    implicitHeight: Math.max(row.implicitHeight, 16)
    implicitWidth: row.implicitWidth
    pressedScale: 1

    RoundedRect {
        anchors.fill: parent
        anchors.leftMargin: -root.plateMargin
        anchors.rightMargin: -root.plateMargin
        anchors.bottomMargin: -5
        anchors.topMargin: -5
        color: Qt.rgba(1, 1, 1, root.pressed ? 0.11 : 0.075)
        radius: 8
        visible: root.containsMouse
    }

    Row {
        id: row

        anchors.centerIn: parent
        spacing: 5

        Symbol {
            anchors.verticalCenter: parent.verticalCenter
            color: root.color
            name: root.symbol
            size: root.size
            visible: root.symbol !== ""
        }
        Label {
            anchors.verticalCenter: parent.verticalCenter
            color: root.color
            font.pixelSize: root.size
            text: root.text
            visible: root.text !== ""
        }
    }
}
