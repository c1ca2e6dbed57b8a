import QtQuick
import Perchly.Look

/// A line of a form: what is chosen, and a list to choose from.
Item {
    id: root

    property string text: ""
    property int pickerWidth: 200
    property list<string> options
    property int currentIndex: -1

    signal chosen(int index)

    implicitHeight: 30
    implicitWidth: 360

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
        anchors.verticalCenter: parent.verticalCenter
        currentIndex: root.currentIndex
        label: root.text
        options: root.options
        width: root.pickerWidth

        onChosen: index => root.chosen(index)
    }
}
