import QtQuick
import QtQuick.Templates as T
import Perchly.Look

/// A one-line text field in a rounded border. Escape clears it; if it is empty, Escape passes on.
T.TextField {
    id: root

    /// Shown while there is no text, and the accessible name.
    property string placeholder: ""
    /// Shown before the text.
    property string symbol: ""

    Accessible.name: root.placeholder
    clip: true
    color: Theme.text
    font.family: Theme.family
    font.pixelSize: 13
    implicitHeight: 32
    implicitWidth: 200
    leftPadding: root.symbol !== "" ? icon.width + 18 : 10
    rightPadding: clear.visible ? 30 : 10
    selectedTextColor: Theme.text
    selectionColor: Qt.rgba(1, 1, 1, 0.26)
    verticalAlignment: TextInput.AlignVCenter

    background: RoundedRect {
        borderColor: root.activeFocus ? Theme.accent : Theme.line
        borderWidth: root.activeFocus ? 2 : 1
        color: Qt.rgba(1, 1, 1, 0.06)
        radius: 8
    }
    Keys.onEscapePressed: event => {
        event.accepted = root.text !== "";
        root.clear();
    }
    // Ignores key repeats.
    Keys.onReturnPressed: event => event.accepted = event.isAutoRepeat
    Keys.onEnterPressed: event => event.accepted = event.isAutoRepeat

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
    Label {
        anchors.fill: parent
        anchors.leftMargin: root.leftPadding
        anchors.rightMargin: root.rightPadding
        color: Theme.grey
        font.pixelSize: 13
        text: root.placeholder
        visible: root.text === "" && root.preeditText === ""
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
        subject: root.placeholder
        symbol: "xmark.circle.fill"
        toolTip: qsTr("Clear")
        visible: root.text !== ""

        onActivated: {
            root.clear();
            root.forceActiveFocus();
        }
    }
}
