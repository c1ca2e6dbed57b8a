import QtQuick
import Perchly.Look

/// A button around any content, which gets a little smaller and dimmer while pressed. Space and
/// Return press it when it has the keyboard.
Item {
    id: root

    /// The accessible name.
    required property string label
    /// The object of the action, for assistive programs.
    property string subject: ""
    property string toolTip: ""
    /// Colour of the plate behind the content.
    property color plate: "transparent"
    property real plateRadius: 8
    /// Scale of the content while the button is pressed.
    property real pressedScale: 0.92
    property int focusInset: -3
    property int focusSideInset: root.focusInset
    property real focusRadius: root.plateRadius - root.focusInset
    /// When this button replaced another, by Date.now(): the second click of a double-click on the
    /// other is then ignored.
    property double cameAt: 0
    readonly property int doubleClickTime: 500
    /// Bind this instead of `enabled`: a button that becomes unusable while it has the keyboard keeps
    /// it, and is disabled, for assistive programs too, when the keyboard moves on.
    property bool usable: true
    readonly property alias pressed: area.pressed
    readonly property alias containsMouse: area.containsMouse
    default property alias content: body.data

    signal activated()

    function press() {
        if (root.usable) {
            root.activated();
        }
    }
    /// Ignores key repeats.
    function pressByKey(event: KeyEvent) {
        if (!event.isAutoRepeat) {
            root.press();
        }
    }

    Accessible.description: root.subject !== "" ? root.subject : root.toolTip !== root.label ? root.toolTip : ""
    Accessible.focusable: root.enabled
    Accessible.focused: root.activeFocus
    Accessible.name: root.label
    Accessible.role: Accessible.Button
    activeFocusOnTab: root.enabled
    enabled: root.usable || root.activeFocus

    Accessible.onPressAction: root.press()
    Keys.onReturnPressed: event => root.pressByKey(event)
    Keys.onEnterPressed: event => root.pressByKey(event)
    Keys.onSpacePressed: event => root.pressByKey(event)

    MouseArea {
        id: area

        anchors.fill: parent
        cursorShape: root.usable ? Qt.PointingHandCursor : Qt.ArrowCursor
        enabled: root.usable
        hoverEnabled: true

        onClicked: {
            if (Date.now() - root.cameAt > root.doubleClickTime) {
                root.activated();
            }
        }

        Item {
            id: body

            anchors.fill: parent
            opacity: area.containsPress ? 0.7 : 1
            scale: area.containsPress && !Theme.reduceMotion ? root.pressedScale : 1

            Behavior on opacity { PressAnimation {} }
            Behavior on scale { PressAnimation {} }

            RoundedRect {
                anchors.fill: parent
                color: root.plate
                radius: root.plateRadius
                visible: root.plate.a > 0
            }
        }

        FocusRing {
            anchors.bottomMargin: root.focusInset
            anchors.leftMargin: root.focusSideInset
            anchors.rightMargin: root.focusSideInset
            anchors.topMargin: root.focusInset
            radius: root.focusRadius
            shown: root.activeFocus
        }
        ToolTipArea {
            text: root.toolTip
        }
    }
}
