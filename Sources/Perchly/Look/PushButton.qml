import QtQuick
import Perchly.Look

/// A button with a word on a plate.
PressButton {
    id: root

    property string text: ""
    /// Marks the default action: the plate has the accent colour.
    property bool prominent: false
    property int size: 13
    /// The text that confirm() shows for a moment.
    property string done: ""

    focusRadius: 10
    implicitHeight: root.size + 17
    implicitWidth: Math.max(64, Math.ceil(word.implicitWidth) + 2 * root.size)
    label: root.text
    opacity: root.usable ? 1 : 0.4
    pressedScale: 0.97

    /// Confirms a press that has no other visible effect.
    function confirm() {
        confirming.restart();
    }

    RoundedRect {
        anchors.fill: parent
        color: root.prominent ? Qt.darker(Theme.accent, root.containsMouse ? 1.08 : 1)
                              : Qt.rgba(1, 1, 1, root.containsMouse && root.usable ? 0.15 : 0.1)
        radius: 8
    }
    Label {
        id: word

        anchors.centerIn: parent
        color: root.prominent ? Theme.window : Theme.text
        font.pixelSize: root.size
        font.weight: Font.Medium
        text: root.text
        visible: !confirming.running
        width: Math.min(implicitWidth, root.width - 8)
    }
    Label {
        anchors.centerIn: parent
        color: Theme.accent
        font.pixelSize: root.size
        font.weight: Font.Medium
        text: root.done
        visible: confirming.running
        width: Math.min(implicitWidth, root.width - 8)
    }
    Timer {
        id: confirming

        interval: 1500
    }
}
