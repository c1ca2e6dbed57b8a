import QtQuick
import QtQuick.Layouts
import Perchly.Look

/// The last notice of a store, over the bottom of its parent, with a button to dismiss it.
RoundedRect {
    id: root

    property string message: ""

    signal dismissed()

    anchors.bottom: parent.bottom
    anchors.bottomMargin: 14
    anchors.horizontalCenter: parent.horizontalCenter
    borderColor: Theme.line
    borderWidth: 1
    color: Qt.rgba(0.11, 0.115, 0.13, 1)
    height: Math.ceil(row.implicitHeight) + 16
    radius: 12
    visible: root.message !== ""
    width: Math.min(parent.width - 48, Math.ceil(row.implicitWidth) + 24)

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
            Accessible.role: Accessible.AlertMessage
            Layout.fillWidth: true
            font.pixelSize: 12
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
}
