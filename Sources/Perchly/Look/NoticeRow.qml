import QtQuick
import QtQuick.Layouts
import Perchly.Look

/// The last notice of a store, with a button to be rid of it. Takes no room while there is none.
RowLayout {
    id: root

    property string message: ""

    signal dismissed()

    spacing: 12
    visible: root.message !== ""

    CaptionText {
        Accessible.role: Accessible.AlertMessage
        Layout.fillWidth: true
        color: Theme.grey
        text: root.message
    }
    PushButton {
        id: button

        size: 12
        text: "Dismiss"

        onActivated: root.dismissed()
        onVisibleChanged: {
            // Back to where the keyboard was.
            if (!button.visible && button.activeFocus) {
                button.nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason);
            }
        }
    }
}
