import QtQuick
import QtQuick.Layouts
import Perchly.Look

/// The layout of an ordinary window: its title, a line below it, and its content, which uses
/// Layout's attached properties. The first control after `start` gets the keyboard when the window
/// appears, unless another control had it.
FocusScope {
    id: root

    property string title: ""
    property string subtitle: ""
    property int spacing: 16
    property int padding: 24
    /// The window's minimum width.
    property int minimumWidth: 0
    property int minimumHeight: 0
    property Item start: rest
    /// Items beside the title, at the window's right.
    property alias accessory: accessory.data
    default property alias content: column.data

    readonly property bool shown: root.Window.window?.visible ?? false
    property bool complete: false

    /// The window was shown, for the first time or again.
    signal appeared()

    function focusFirst() {
        if (root.complete && root.shown && rest.focus) {
            root.start.nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason);
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
        // A press outside all controls takes the keyboard from a field.
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
