import QtQuick
import Perchly.Look

/// A symbol that gets a plate when the pointer is over it. Its tooltip describes the action.
PressButton {
    id: root

    property string symbol: ""
    property color color: Theme.text
    property int size: 14

    focusInset: 0
    implicitHeight: 30
    implicitWidth: 30
    label: root.toolTip
    opacity: root.usable ? 1 : 0.25

    RoundedRect {
        anchors.fill: parent
        color: Qt.rgba(1, 1, 1, 0.09)
        radius: 8
        visible: root.usable && root.containsMouse
    }
    Symbol {
        anchors.centerIn: parent
        color: root.color
        name: root.symbol
        size: root.size
    }
}
