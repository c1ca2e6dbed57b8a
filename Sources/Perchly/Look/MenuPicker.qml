pragma ComponentBehavior: Bound

import QtQuick
import Perchly.Look

/// Chooses an option from a list that opens above the window's content. Space, Return and the arrow
/// keys open it.
PressButton {
    id: root

    property list<string> options
    property int currentIndex: -1
    readonly property string currentText: root.options[root.currentIndex] ?? ""
    property MenuList list: null

    signal chosen(int index)

    function show() {
        if (root.options.length > 0) {
            root.list = menu.createObject(root) as MenuList;
            root.list.open();
        }
    }

    Accessible.description: root.currentText
    Accessible.role: Accessible.ComboBox
    implicitHeight: 30
    implicitWidth: 180
    pressedScale: 1

    Keys.onDownPressed: root.show()
    Keys.onUpPressed: root.show()
    onActivated: root.show()
    onCurrentIndexChanged: root.list?.close()

    RoundedRect {
        anchors.fill: parent
        color: Qt.rgba(1, 1, 1, root.containsMouse || root.list ? 0.15 : 0.1)
        radius: 8
    }
    Label {
        anchors.left: parent.left
        anchors.leftMargin: 12
        anchors.right: arrows.left
        anchors.rightMargin: 6
        anchors.verticalCenter: parent.verticalCenter
        font.pixelSize: 13
        text: root.currentText
    }
    Symbol {
        id: arrows

        anchors.right: parent.right
        anchors.rightMargin: 9
        anchors.verticalCenter: parent.verticalCenter
        color: Theme.grey
        name: "chevron.up.chevron.down"
        size: 11
    }
    Component {
        id: menu

        MenuList {
            current: root.currentIndex
            label: root.label
            options: root.options

            onChosen: index => root.chosen(index)
        }
    }
}
