import QtQuick
import Perchly.Look

/// Turns the strip's page.
PressButton {
    id: root

    required property string symbol

    focusInset: -2
    implicitHeight: 34
    implicitWidth: 24
    label: root.toolTip
    plate: Qt.rgba(1, 1, 1, !root.usable ? 0.02 : root.containsMouse ? 0.11 : 0.06)

    Symbol {
        anchors.centerIn: parent
        bold: true
        color: Qt.rgba(1, 1, 1, root.usable ? 0.75 : 0.15)
        name: root.symbol
        size: 10
    }
}
