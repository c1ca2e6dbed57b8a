import QtQuick
import Perchly.Look

/// Says, over the whole shelf, that a playback command failed, until the person has read it.
Item {
    id: root

    required property string message
    required property string edge
    required property real radius
    required property color accentColor

    signal dismissed()

    clip: true

    Component.onCompleted: confirm.forceActiveFocus()

    Rectangle {
        anchors.fill: parent
        anchors.leftMargin: root.edge === "left" ? -root.radius : 0
        anchors.rightMargin: root.edge === "right" ? -root.radius : 0
        anchors.topMargin: root.edge === "top" ? -root.radius : 0
        color: Qt.rgba(0, 0, 0, 0.55)
        radius: root.radius
    }
    MouseArea {
        anchors.fill: parent
        hoverEnabled: true
        onWheel: wheel => wheel.accepted = true
    }

    Rectangle {
        id: card

        Accessible.description: root.message
        Accessible.name: title.text
        Accessible.role: Accessible.AlertMessage
        anchors.centerIn: parent
        border.color: Qt.rgba(1, 1, 1, 0.1)
        border.width: 1
        color: Theme.floating
        height: confirm.y + confirm.height + 16
        radius: 16
        width: Math.min(320, root.width - 40)

        Label {
            id: title

            anchors.left: parent.left
            anchors.leftMargin: 20
            anchors.right: parent.right
            anchors.rightMargin: 20
            font.pixelSize: 13
            font.weight: Font.DemiBold
            horizontalAlignment: Text.AlignHCenter
            text: "Media controls unavailable"
            y: 20
        }
        Label {
            id: body

            anchors.left: title.left
            anchors.right: title.right
            anchors.top: title.bottom
            anchors.topMargin: 8
            color: Qt.rgba(1, 1, 1, 0.75)
            horizontalAlignment: Text.AlignHCenter
            lineHeight: 1.25
            maximumLineCount: 8
            text: root.message
            wrapMode: Text.Wrap
        }
        PressButton {
            id: confirm

            anchors.left: title.left
            anchors.right: title.right
            anchors.top: body.bottom
            anchors.topMargin: 16
            focusRadius: 11
            height: 30
            label: "OK"
            onActivated: root.dismissed()

            Rectangle {
                anchors.fill: parent
                color: root.accentColor
                opacity: confirm.containsMouse ? 1 : 0.9
                radius: 8
            }
            Label {
                Accessible.ignored: true
                anchors.centerIn: parent
                color: "black"
                font.pixelSize: 12
                font.weight: Font.DemiBold
                text: confirm.label
            }
        }
    }
}
