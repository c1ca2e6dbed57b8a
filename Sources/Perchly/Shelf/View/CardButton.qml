import QtQuick
import Perchly.Look

/// A small text button on a card.
PressButton {
    id: root

    required property string text

    focusInset: -2
    implicitHeight: 22
    implicitWidth: Math.ceil(word.implicitWidth) + 20
    label: root.text
    plate: Qt.rgba(1, 1, 1, root.containsMouse ? 0.14 : 0.09)
    plateRadius: 7

    Label {
        id: word

        anchors.centerIn: parent
        font.weight: Font.Medium
        text: root.text
    }
}
