import QtQuick
import Perchly.Look
import Perchly.Stores

/// A drag handle of the shelf: a click toggles keyboard mode, a drag moves the shelf. The shell
/// decides which of the two a press is. A right click opens the status item's menu.
MouseArea {
    id: root

    required property ShellActions shell
    required property string label
    property string toolTip: ""
    property int toolTipSide: Qt.BottomEdge
    /// True if the shelf opened with the pointer over this handle; suppresses the tooltip until the
    /// pointer leaves.
    property bool byChance: false
    readonly property alias menu: menu

    /// Ignores key repeats.
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

    MenuArea {
        id: menu

        onAsked: (position, byKey) => root.shell.showMenu(position, byKey)
    }
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
