import QtQuick
import Perchly.Look

/// A form row with a label and a MenuPicker.
Item {
    id: root

    property string text: ""
    property alias options: picker.options
    property alias currentIndex: picker.currentIndex

    signal chosen(int index)

    implicitHeight: 30
    width: parent?.width ?? 0

    Label {
        anchors.left: parent.left
        anchors.right: picker.left
        anchors.rightMargin: 12
        anchors.verticalCenter: parent.verticalCenter
        font.pixelSize: 13
        text: root.text
    }
    MenuPicker {
        id: picker

        anchors.right: parent.right
        label: root.text
        width: 200

        onChosen: index => root.chosen(index)
    }
}
