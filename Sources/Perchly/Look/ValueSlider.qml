import QtQuick
import Perchly.Look

/// A number between two ends. Bind `current` to it; `moved` asks for another one while the person
/// drags, presses on the track or uses the arrow keys, Page Up and Down, Home and End.
MouseArea {
    id: root

    /// What assistive programs call it.
    required property string label
    required property real current
    property real minimumValue: 0
    property real maximumValue: 1
    /// What an arrow key changes; ten of them for a page.
    property real stepSize: (root.maximumValue - root.minimumValue) / 20
    /// What assistive programs read and write.
    property real value: root.current

    readonly property real share: {
        const span = root.maximumValue - root.minimumValue;
        return span > 0 ? Math.max(0, Math.min(1, (root.current - root.minimumValue) / span)) : 0;
    }

    signal moved(real value)

    function ask(value: real) {
        // Without what the arithmetic of steps leaves behind the fourth decimal.
        const rounded = Math.round(value * 1e4) / 1e4;
        const wanted = Math.max(root.minimumValue, Math.min(root.maximumValue, rounded));
        if (wanted !== root.current) {
            root.moved(wanted);
        }
    }

    function askAt(x: real) {
        const room = root.width - knob.width;
        const share = room > 0 ? (x - knob.width / 2) / room : 0;
        root.ask(root.minimumValue + share * (root.maximumValue - root.minimumValue));
    }

    Accessible.focusable: root.enabled
    Accessible.focused: root.activeFocus
    Accessible.name: root.label
    Accessible.role: Accessible.Slider
    activeFocusOnTab: root.enabled || root.activeFocus
    cursorShape: root.enabled ? Qt.PointingHandCursor : Qt.ArrowCursor
    hoverEnabled: true
    implicitHeight: 28
    implicitWidth: 160
    opacity: root.enabled ? 1 : 0.4
    preventStealing: true

    Accessible.onDecreaseAction: root.ask(root.current - root.stepSize)
    Accessible.onIncreaseAction: root.ask(root.current + root.stepSize)
    Keys.onDownPressed: root.ask(root.current - root.stepSize)
    Keys.onLeftPressed: root.ask(root.current - root.stepSize)
    Keys.onPressed: event => {
        const asked = {
            [Qt.Key_Home]: root.minimumValue,
            [Qt.Key_End]: root.maximumValue,
            [Qt.Key_PageDown]: root.current - 10 * root.stepSize,
            [Qt.Key_PageUp]: root.current + 10 * root.stepSize
        }[event.key];
        if (asked !== undefined) {
            root.ask(asked);
            event.accepted = true;
        }
    }
    Keys.onRightPressed: root.ask(root.current + root.stepSize)
    Keys.onUpPressed: root.ask(root.current + root.stepSize)
    onPositionChanged: mouse => {
        if (root.pressed) {
            root.askAt(mouse.x);
        }
    }
    onPressed: mouse => root.askAt(mouse.x)
    onValueChanged: {
        if (root.value !== root.current) {
            root.ask(root.value);
        }
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
        color: Theme.accent
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
