import QtQuick
import Perchly.Look

/// Chooses one of several words from a list that opens above the window's content. Space, Return and
/// the arrow keys open it.
PressButton {
    id: root

    required property list<string> options
    required property int currentIndex
    readonly property string currentText: root.options[root.currentIndex] ?? ""
    readonly property bool open: list.active

    signal chosen(int index)

    function show() {
        if (root.options.length === 0) {
            return;
        }
        list.setSource("MenuList.qml", {
            current: root.currentIndex,
            label: root.label,
            options: root.options,
            picker: root
        });
        list.active = true;
    }

    function close() {
        if (list.active) {
            list.active = false;
            root.forceActiveFocus();
        }
    }

    Accessible.description: root.currentText
    Accessible.role: Accessible.ComboBox
    focusInset: -3
    focusRadius: 11
    implicitHeight: 30
    implicitWidth: 180
    opacity: root.enabled ? 1 : 0.4
    pressedScale: 1

    Keys.onDownPressed: root.show()
    Keys.onUpPressed: root.show()
    onActivated: root.show()
    onCurrentIndexChanged: root.close()
    onVisibleChanged: list.active = false

    RoundedRect {
        anchors.fill: parent
        color: Qt.rgba(1, 1, 1, root.containsMouse || root.open ? 0.15 : 0.1)
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

    Loader {
        id: list

        active: false

        Connections {
            target: list.item

            function onChosen(index: int) {
                root.close();
                if (index >= 0) {
                    root.chosen(index);
                }
            }
            function onClosed() {
                root.close();
            }
        }
    }
}
