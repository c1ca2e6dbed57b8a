import QtQuick
import Perchly.Look

/// A word on a small plate, for what a card offers to do.
PressButton {
    id: root

    required property string text
    property int size: 11

    focusInset: -2
    focusRadius: 9
    implicitHeight: 22
    implicitWidth: Math.ceil(word.implicitWidth) + 20
    label: root.text

    Rectangle {
        anchors.fill: parent
        color: Qt.rgba(1, 1, 1, root.containsMouse ? 0.14 : 0.09)
        radius: 7
    }
    Label {
        id: word

        anchors.centerIn: parent
        font.pixelSize: root.size
        font.weight: Font.Medium
        text: root.text
    }
}
