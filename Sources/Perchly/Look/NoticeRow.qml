import QtQuick
import QtQuick.Layouts
import Perchly.Look

/// The last notice of a store, with a button to dismiss it.
RoundedRect {
    id: root

    property string message: ""
    property real maxWidth: 0

    signal dismissed()

    borderColor: Theme.line
    borderWidth: 1
    color: Qt.rgba(0.11, 0.115, 0.13, 1)
    height: Math.ceil(row.implicitHeight) + 16
    radius: 12
    visible: root.message !== ""
    width: Math.min(root.maxWidth, Math.ceil(row.implicitWidth) + 24)

    MouseArea {
        // Nothing below takes the press.
        anchors.fill: parent
        hoverEnabled: true
    }
    RowLayout {
        id: row

        anchors.fill: parent
        anchors.leftMargin: 16
        anchors.rightMargin: 8
        spacing: 12

        BodyText {
            id: body

            Accessible.role: Accessible.AlertMessage
            Layout.fillWidth: true
            elide: Text.ElideRight
            font.pixelSize: 12
            maximumLineCount: 5
            text: root.message

            ToolTipArea {
                text: body.truncated ? root.message : ""
            }
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
}
