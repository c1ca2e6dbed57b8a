import QtQuick
import QtQuick.Layouts
import Perchly.Look

/// The last notice of a store, with a button to dismiss it. Takes no space without a notice.
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
        text: qsTr("Dismiss")

        onActivated: root.dismissed()
        onVisibleChanged: {
            // Return the keyboard to where it was.
            if (!button.visible && button.activeFocus) {
                button.nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason);
            }
        }
    }
}
