import QtQuick
import QtQuick.Layouts
import Perchly.Look

/// The content of an ordinary window: its title, a line below it, and its content, laid out
/// from top to bottom with Layout's attached properties. Its first control has the keyboard when it
/// comes onto the screen, unless another one had it.
FocusScope {
    id: root

    property string title: ""
    property string subtitle: ""
    property int spacing: 16
    property int padding: 24
    /// The window is never smaller than this.
    property int minimumWidth: 0
    property int minimumHeight: 0
    /// Beside the title, at the window's right.
    property alias accessory: accessory.data
    default property alias content: column.data

    readonly property bool shown: root.Window.window?.visible ?? false
    property bool complete: false

    /// The window came onto the screen, for the first time or again.
    signal appeared()

    function focusFirst() {
        if (root.complete && root.shown && rest.focus) {
            rest.nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason);
        }
    }

    focus: true

    Component.onCompleted: {
        root.complete = true;
        root.focusFirst();
    }
    onShownChanged: {
        if (root.shown) {
            root.appeared();
            root.focusFirst();
        }
    }

    Rectangle {
        anchors.fill: parent
        color: Theme.window
    }
    MouseArea {
        // A press beside everything leaves the field that has the keyboard.
        anchors.fill: parent
        onPressed: rest.forceActiveFocus()
    }
    Item {
        id: rest

        focus: true
    }
    ColumnLayout {
        id: column

        anchors.fill: parent
        anchors.margins: root.padding
        spacing: root.spacing

        RowLayout {
            Layout.fillWidth: true
            spacing: 12

            TitleText {
                Layout.fillWidth: true
                text: root.title
            }
            RowLayout {
                id: accessory

                spacing: 8
                visible: children.length > 0
            }
        }
        SecondaryText {
            Layout.fillWidth: true
            text: root.subtitle
            visible: root.subtitle !== ""
        }
    }
}
