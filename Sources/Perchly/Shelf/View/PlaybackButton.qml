import QtQuick
import Perchly.Look

/// A playback control. A new symbol grows in place of the old one.
PressButton {
    id: root

    required property string symbol

    focusInset: -2
    implicitHeight: 28
    implicitWidth: 30
    label: root.toolTip
    opacity: root.usable ? 1 : 0.35
    plate: Qt.rgba(1, 1, 1, root.usable && root.containsMouse ? 0.14 : 0.08)

    onSymbolChanged: {
        if (!Theme.reduceMotion) {
            arrival.restart();
        }
    }

    Symbol {
        id: symbol

        anchors.centerIn: parent
        bold: true
        name: root.symbol
        size: 13
    }

    ParallelAnimation {
        id: arrival

        NumberAnimation { duration: 180; easing.type: Easing.OutCubic; from: 0.5; property: "scale"; target: symbol; to: 1 }
        NumberAnimation { duration: 180; easing.type: Easing.OutCubic; from: 0; property: "opacity"; target: symbol; to: 1 }
    }
}
