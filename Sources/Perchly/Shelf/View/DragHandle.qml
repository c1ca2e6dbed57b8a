import QtQuick
import Perchly.Look
import Perchly.Stores

/// An area by which the shelf is held: a click opens it in keyboard mode, a drag moves it. Which of
/// the two a press becomes, the shell decides.
MouseArea {
    id: root

    required property ShellActions shell
    required property string label
    property string toolTip: ""
    property int toolTipSide: Qt.BottomEdge
    /// A hovering pointer that has just opened the shelf is here by chance: no tooltip until it has
    /// left.
    property bool byChance: false

    /// A key that is held presses once.
    function pressByKey(event: KeyEvent) {
        if (!event.isAutoRepeat) {
            root.shell.toggleKeyboardOpen();
        }
    }

    Accessible.focusable: root.activeFocusOnTab
    Accessible.focused: root.activeFocus
    Accessible.name: root.label
    Accessible.role: Accessible.Button
    acceptedButtons: Qt.LeftButton
    activeFocusOnTab: true
    hoverEnabled: true
    preventStealing: true

    Accessible.onPressAction: root.shell.toggleKeyboardOpen()
    Keys.onEnterPressed: event => root.pressByKey(event)
    Keys.onReturnPressed: event => root.pressByKey(event)
    Keys.onSpacePressed: event => root.pressByKey(event)
    onCanceled: root.shell.handleCanceled()
    onExited: root.byChance = false
    onPositionChanged: {
        if (root.pressed) {
            root.shell.handleMoved();
        }
    }
    onPressed: {
        tip.dismiss();
        root.shell.handlePressed();
    }
    onReleased: root.shell.handleReleased()

    FocusRing {
        anchors.margins: 4
        radius: 10
        shown: root.activeFocus
    }
    ToolTipArea {
        id: tip

        side: root.toolTipSide
        text: root.byChance ? "" : root.toolTip
    }
}
