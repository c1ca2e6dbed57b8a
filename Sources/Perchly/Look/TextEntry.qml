import QtQuick
import Perchly.Look

/// A one-line text field in a rounded border. Escape clears it; if it is empty, Escape passes on.
FocusScope {
    id: root

    /// The accessible name; by default the placeholder.
    property string label: root.placeholder
    property string placeholder: ""
    /// Shown before the text.
    property string symbol: ""
    property alias text: input.text
    readonly property alias input: input

    /// Return was pressed.
    signal accepted()

    activeFocusOnTab: true
    implicitHeight: 32
    implicitWidth: 200

    RoundedRect {
        anchors.fill: parent
        borderColor: input.activeFocus ? Theme.accent : Theme.line
        borderWidth: input.activeFocus ? 2 : 1
        color: Qt.rgba(1, 1, 1, 0.06)
        radius: 8
    }
    Symbol {
        id: icon

        anchors.left: parent.left
        anchors.leftMargin: 10
        anchors.verticalCenter: parent.verticalCenter
        color: Theme.grey
        name: root.symbol
        size: 12
        visible: root.symbol !== ""
    }
    TextInput {
        id: input

        Accessible.description: root.placeholder !== root.label ? root.placeholder : ""
        Accessible.name: root.label
        Accessible.role: Accessible.EditableText
        anchors.fill: parent
        anchors.leftMargin: root.symbol !== "" ? icon.width + 18 : 10
        anchors.rightMargin: clear.visible ? 30 : 10
        clip: true
        color: Theme.text
        focus: true
        font.family: Theme.family
        font.pixelSize: 13
        selectByMouse: true
        selectedTextColor: Theme.text
        selectionColor: Qt.rgba(1, 1, 1, 0.26)
        verticalAlignment: TextInput.AlignVCenter

        Keys.onEscapePressed: event => {
            event.accepted = input.text !== "";
            input.clear();
        }
        // Ignores key repeats.
        Keys.onReturnPressed: event => event.accepted = event.isAutoRepeat
        Keys.onEnterPressed: event => event.accepted = event.isAutoRepeat
        onAccepted: root.accepted()
    }
    HoverHandler {
        cursorShape: Qt.IBeamCursor
    }
    Label {
        anchors.left: input.left
        anchors.right: input.right
        anchors.verticalCenter: parent.verticalCenter
        color: Theme.grey
        font.pixelSize: 13
        text: root.placeholder
        visible: input.text === "" && input.preeditText === ""
    }
    IconButton {
        id: clear

        activeFocusOnTab: false
        anchors.right: parent.right
        anchors.rightMargin: 4
        anchors.verticalCenter: parent.verticalCenter
        color: Theme.grey
        implicitHeight: 24
        implicitWidth: 24
        size: 12
        subject: root.label
        symbol: "xmark.circle.fill"
        toolTip: "Clear"
        visible: input.text !== ""

        onActivated: {
            input.clear();
            input.forceActiveFocus();
        }
    }
}
