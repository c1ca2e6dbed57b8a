import QtQuick
import Perchly.Look

/// A number in a range, changed by the arrow keys, Page Up and Down, Home and End, and by assistive
/// programs. Bind `current` to it; `asked` requests a change.
FocusScope {
    id: root

    /// The accessible name.
    required property string label
    property real current: 0
    property real from: 0
    property real to: 1
    /// The step of an arrow key; a page is ten steps.
    property real stepSize: (root.to - root.from) / 20
    /// The value that assistive programs read and write.
    property real value: root.current

    signal asked(real value)

    function ask(value: real) {
        // Rounded to four decimals, which removes floating-point errors of repeated steps.
        const rounded = Math.round(value * 1e4) / 1e4;
        const wanted = Math.max(root.from, Math.min(root.to, rounded));
        if (wanted !== root.current) {
            root.asked(wanted);
        }
    }

    Accessible.focused: root.activeFocus
    Accessible.name: root.label
    activeFocusOnTab: true
    implicitHeight: 28

    Accessible.onDecreaseAction: root.ask(root.current - root.stepSize)
    Accessible.onIncreaseAction: root.ask(root.current + root.stepSize)
    Keys.onPressed: event => {
        const steps = {
            [Qt.Key_Down]: -1, [Qt.Key_Left]: -1, [Qt.Key_Right]: 1, [Qt.Key_Up]: 1,
            [Qt.Key_PageDown]: -10, [Qt.Key_PageUp]: 10,
            [Qt.Key_Home]: -Infinity, [Qt.Key_End]: Infinity
        }[event.key];
        event.accepted = steps !== undefined;
        if (event.accepted) {
            root.ask(root.current + steps * root.stepSize);
        }
    }
    onValueChanged: {
        if (root.value !== root.current) {
            root.ask(root.value);
        }
    }
}
