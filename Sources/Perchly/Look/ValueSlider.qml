import QtQuick
import Perchly.Look

/// A slider for a number in a range; a press on the track or a drag also changes it.
RangeControl {
    id: root

    /// Of the track below the value.
    property color color: Theme.accent

    readonly property real share: (Math.max(root.from, Math.min(root.to, root.current)) - root.from) / (root.to - root.from)

    function askAt(x: real) {
        root.ask(root.from + (x - knob.width / 2) / (root.width - knob.width) * (root.to - root.from));
    }

    Accessible.role: Accessible.Slider
    implicitWidth: 160

    MouseArea {
        anchors.fill: parent
        cursorShape: Qt.PointingHandCursor
        preventStealing: true

        onPositionChanged: mouse => root.askAt(mouse.x)
        onPressed: mouse => root.askAt(mouse.x)
    }
    RoundedRect {
        id: track

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        color: Qt.rgba(1, 1, 1, 0.16)
        height: 4
        radius: 2
    }
    RoundedRect {
        anchors.left: track.left
        anchors.verticalCenter: parent.verticalCenter
        color: root.color
        height: 4
        radius: 2
        width: knob.x + knob.width / 2
    }
    RoundedRect {
        id: knob

        anchors.verticalCenter: parent.verticalCenter
        borderColor: Qt.rgba(0, 0, 0, 0.35)
        borderWidth: 1
        height: 18
        radius: 9
        width: 18
        x: Math.round(root.share * (root.width - width))

        FocusRing {
            anchors.margins: -4
            radius: 13
            shown: root.activeFocus
        }
    }
}
