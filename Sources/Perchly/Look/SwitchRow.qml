import QtQuick
import Perchly.Look

/// A line of text with a switch at its end. A press anywhere on it requests the other state; the
/// switch shows what `checked` is bound to.
PressButton {
    id: root

    property string text: ""
    property bool checked: false

    signal toggled(bool checked)

    Accessible.checkable: true
    Accessible.checked: root.checked
    Accessible.role: Accessible.CheckBox
    focusInset: -4
    focusRadius: 10
    focusSideInset: -8
    implicitHeight: 28
    implicitWidth: Math.ceil(words.implicitWidth) + 60
    label: root.text
    pressedScale: 1

    Accessible.onToggleAction: root.press()
    onActivated: root.toggled(!root.checked)

    Label {
        id: words

        anchors.left: parent.left
        anchors.right: track.left
        anchors.rightMargin: 12
        anchors.verticalCenter: parent.verticalCenter
        font.pixelSize: 13
        text: root.text
    }
    RoundedRect {
        id: track

        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        color: root.checked ? Theme.accent : Qt.rgba(1, 1, 1, root.containsMouse ? 0.2 : 0.16)
        height: 22
        radius: 11
        width: 38

        RoundedRect {
            height: 18
            radius: 9
            width: 18
            x: root.checked ? track.width - width - 2 : 2
            y: 2

            Behavior on x {
                enabled: !Theme.reduceMotion
                PressAnimation {}
            }
        }
    }
}
