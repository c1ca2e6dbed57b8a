import QtQuick
import Perchly.Look

/// A symbol without a plate until the pointer is over it. Its tooltip says what it does.
PressButton {
    id: root

    property string symbol: ""
    property color color: Theme.text
    property int size: 14

    focusInset: 0
    implicitHeight: 30
    implicitWidth: 30
    label: root.toolTip
    opacity: root.enabled ? 1 : 0.25

    RoundedRect {
        anchors.fill: parent
        color: Qt.rgba(1, 1, 1, 0.09)
        radius: 8
        visible: root.enabled && root.containsMouse
    }
    Symbol {
        anchors.centerIn: parent
        color: root.color
        name: root.symbol
        size: root.size
    }
}
