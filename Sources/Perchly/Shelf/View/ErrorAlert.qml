import QtQuick
import Perchly.Look
import Perchly.Stores

/// An alert over the whole shelf after a failed playback command or launch, until the user dismisses
/// it. Nothing behind it gets the keyboard meanwhile, except a text that the user is writing.
FocusScope {
    id: root

    required property ShelfModel model
    required property ShelfPreferences preferences
    required property real radius
    /// Scale of the shelf's content.
    required property real contentScale

    readonly property string edge: root.model.dockEdge

    clip: true

    property Item returnTo: null

    function isWriting(item: Item): bool {
        return item instanceof TextEdit || item instanceof TextInput;
    }

    function hold() {
        const focused = root.Window.activeFocusItem;
        if (!confirm.activeFocus && !root.isWriting(focused)) {
            root.returnTo = root.returnTo ?? focused;
            confirm.forceActiveFocus();
        }
    }

    Component.onCompleted: root.hold()
    Component.onDestruction: {
        if (confirm.activeFocus) {
            root.returnTo?.forceActiveFocus();
        }
    }
    Keys.onBacktabPressed: confirm.forceActiveFocus()
    Keys.onTabPressed: confirm.forceActiveFocus()

    Connections {
        target: root.Window.window

        function onActiveFocusItemChanged() {
            again.start();
        }
    }
    // Delayed until the focus change is complete.
    Timer {
        id: again

        interval: 0
        onTriggered: root.hold()
    }

    RoundedRect {
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

    RoundedRect {
        id: card

        Accessible.description: root.model.controlError
        Accessible.name: title.text
        Accessible.role: Accessible.AlertMessage
        anchors.centerIn: parent
        borderColor: Qt.rgba(1, 1, 1, 0.1)
        borderWidth: 1
        color: Theme.floating
        height: confirm.y + confirm.height + 16
        radius: 16
        scale: root.contentScale
        width: Math.min(320, root.width / root.contentScale - 40)

        Label {
            id: title

            anchors.left: parent.left
            anchors.leftMargin: 20
            anchors.right: parent.right
            anchors.rightMargin: 20
            font.pixelSize: 13
            font.weight: Font.DemiBold
            horizontalAlignment: Text.AlignHCenter
            text: root.model.errorTitle
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
            text: root.model.controlError
            wrapMode: Text.Wrap
        }
        PressButton {
            id: confirm

            anchors.left: title.left
            anchors.right: title.right
            anchors.top: body.bottom
            anchors.topMargin: 16
            height: 30
            label: qsTr("OK")
            plate: Qt.alpha(Theme.accent, confirm.containsMouse ? 1 : 0.9)
            onActivated: root.model.clearControlError()

            Label {
                anchors.centerIn: parent
                color: "black"
                font.pixelSize: 12
                font.weight: Font.DemiBold
                text: confirm.label
            }
        }
    }
}
