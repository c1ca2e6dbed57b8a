import QtQuick
import Perchly.Look

/// A whole number in words, with buttons for one less and one more. Bind `current` to it; `moved`
/// asks for another one, by the buttons or, when it has the keyboard, by the arrow keys, Home and
/// End.
FocusScope {
    id: root

    property string text: ""
    property int current: 0
    property int minimumValue: 0
    property int maximumValue: 100
    property int stepSize: 1
    /// What assistive programs read and write.
    property int value: root.current

    signal moved(value: int)

    function ask(value: int) {
        const wanted = Math.max(root.minimumValue, Math.min(root.maximumValue, value));
        if (wanted !== root.current) {
            root.moved(wanted);
        }
    }

    function askKey(event: var, value: int) {
        root.ask(value);
        event.accepted = true;
    }

    Accessible.focusable: true
    Accessible.focused: root.activeFocus
    Accessible.name: root.text
    Accessible.role: Accessible.SpinBox
    activeFocusOnTab: true
    implicitHeight: 28
    implicitWidth: words.implicitWidth + 92

    Accessible.onDecreaseAction: root.ask(root.current - root.stepSize)
    Accessible.onIncreaseAction: root.ask(root.current + root.stepSize)
    Keys.onDownPressed: root.ask(root.current - root.stepSize)
    Keys.onLeftPressed: root.ask(root.current - root.stepSize)
    Keys.onPressed: event => {
        if (event.key === Qt.Key_Home) {
            root.askKey(event, root.minimumValue);
        } else if (event.key === Qt.Key_End) {
            root.askKey(event, root.maximumValue);
        } else if (event.key === Qt.Key_PageUp) {
            root.askKey(event, root.current + 10 * root.stepSize);
        } else if (event.key === Qt.Key_PageDown) {
            root.askKey(event, root.current - 10 * root.stepSize);
        }
    }
    Keys.onRightPressed: root.ask(root.current + root.stepSize)
    Keys.onUpPressed: root.ask(root.current + root.stepSize)
    onValueChanged: {
        if (root.value !== root.current) {
            root.ask(root.value);
        }
    }

    DigitText {
        id: words

        anchors.left: parent.left
        anchors.verticalCenter: parent.verticalCenter
        size: 13
        text: root.text
    }
    RoundedRect {
        id: plate

        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        color: Qt.rgba(1, 1, 1, 0.1)
        height: 28
        radius: 8
        width: 69

        IconButton {
            activeFocusOnTab: false
            enabled: root.current > root.minimumValue
            height: 28
            size: 12
            subject: root.text
            symbol: "minus"
            toolTip: "Less"
            width: 34

            onActivated: root.ask(root.current - root.stepSize)
        }
        Rectangle {
            anchors.centerIn: parent
            color: Theme.line
            height: 16
            width: 1
        }
        IconButton {
            activeFocusOnTab: false
            anchors.right: parent.right
            enabled: root.current < root.maximumValue
            height: 28
            size: 12
            subject: root.text
            symbol: "plus"
            toolTip: "More"
            width: 34

            onActivated: root.ask(root.current + root.stepSize)
        }
        FocusRing {
            anchors.margins: -3
            radius: 10
            shown: root.activeFocus
        }
    }
}
