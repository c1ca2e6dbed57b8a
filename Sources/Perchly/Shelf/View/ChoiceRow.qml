import QtQuick
import Perchly.Look

/// One option in a popover.
PressButton {
    id: root

    required property string text
    required property string symbol
    required property bool chosen

    Accessible.checkable: true
    Accessible.checked: root.chosen
    focusInset: 0
    implicitHeight: 28
    label: root.text
    plate: Qt.rgba(1, 1, 1, root.containsMouse || root.activeFocus ? 0.09 : 0)
    plateRadius: 7

    Symbol {
        id: symbol

        anchors.verticalCenter: parent.verticalCenter
        color: Theme.accent
        name: root.symbol
        size: 13
        x: 8
    }
    Label {
        anchors.left: symbol.right
        anchors.leftMargin: 9
        anchors.right: check.left
        anchors.rightMargin: 6
        anchors.verticalCenter: parent.verticalCenter
        font.pixelSize: 12
        text: root.text
    }
    Symbol {
        id: check

        anchors.right: parent.right
        anchors.rightMargin: 9
        anchors.verticalCenter: parent.verticalCenter
        color: Theme.accent
        name: "checkmark"
        size: 10
        visible: root.chosen
    }
}
