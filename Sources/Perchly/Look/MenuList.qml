pragma ComponentBehavior: Bound

import QtQuick
import Perchly.Look

/// The open list of a MenuPicker. It covers the window, so that a press beside it closes it, and lies
/// where there is most room.
Item {
    id: root

    required property Item picker
    required property string label
    required property list<string> options
    required property int current

    signal chosen(int index)
    signal closed()

    /// Chooses by a key, unless it is the one that opened the list and is still held.
    function choose(event: KeyEvent) {
        if (!event.isAutoRepeat && list.currentIndex >= 0) {
            root.chosen(list.currentIndex);
        }
    }
    /// Goes to the next option that begins with what was typed.
    function find(typed: var) {
        const wanted = typed.toLocaleLowerCase();
        const fits = option => option.toLocaleLowerCase().startsWith(wanted);
        const after = root.options.slice(list.currentIndex + 1).findIndex(fits);
        const found = after >= 0 ? list.currentIndex + 1 + after : root.options.findIndex(fits);
        if (found >= 0) {
            list.currentIndex = found;
        }
    }

    anchors.fill: parent
    parent: root.picker.Window.contentItem
    z: 1000

    Component.onCompleted: {
        list.currentIndex = root.current;
        list.positionViewAtIndex(Math.max(0, root.current), ListView.Contain);
        list.forceActiveFocus();
    }
    onHeightChanged: root.closed()
    onWidthChanged: root.closed()

    // A menu goes with its window, and when something else takes the keyboard.
    Connections {
        target: root.Window.window

        function onActiveChanged() {
            if (!root.Window.active) {
                root.closed();
            }
        }
        function onActiveFocusItemChanged() {
            settling.restart();
        }
        function onVisibleChanged() {
            root.closed();
        }
    }

    // On its way to another item the focus is nowhere.
    Timer {
        id: settling

        interval: 0
        onTriggered: {
            if (root.Window.active && !list.activeFocus) {
                root.closed();
            }
        }
    }

    MouseArea {
        acceptedButtons: Qt.AllButtons
        anchors.fill: parent
        hoverEnabled: true
        onPressed: root.closed()
        onWheel: wheel => wheel.accepted = true
    }

    RoundedRect {
        id: card

        readonly property int padding: 5
        readonly property int margin: 8
        readonly property real pickerX: root.picker.mapToItem(null, 0, 0).x
        readonly property real pickerY: root.picker.mapToItem(null, 0, 0).y
        readonly property real below: root.height - card.pickerY - root.picker.height - 4 - card.margin
        readonly property real above: card.pickerY - 4 - card.margin
        readonly property real wanted: root.options.length * list.rowHeight + 2 * card.padding
        readonly property bool downwards: card.wanted <= card.below || card.below >= card.above

        Accessible.name: root.label
        Accessible.role: Accessible.List
        borderColor: Qt.rgba(1, 1, 1, 0.16)
        borderWidth: 1
        color: Qt.rgba(0.11, 0.115, 0.13, 1)
        height: Math.min(card.wanted, card.downwards ? card.below : card.above)
        radius: 10
        width: root.picker.width
        x: card.pickerX
        y: card.downwards ? card.pickerY + root.picker.height + 4 : card.pickerY - 4 - card.height

        MouseArea {
            anchors.fill: parent
        }
        ListView {
            id: list

            readonly property int rowHeight: 30

            anchors.fill: parent
            anchors.margins: card.padding
            boundsBehavior: Flickable.StopAtBounds
            clip: true
            highlightMoveDuration: 0
            keyNavigationEnabled: false
            model: root.options

            Keys.onBacktabPressed: root.closed()
            Keys.onDownPressed: list.incrementCurrentIndex()
            Keys.onEnterPressed: event => root.choose(event)
            Keys.onEscapePressed: root.closed()
            Keys.onPressed: event => {
                if (event.key === Qt.Key_Home) {
                    list.currentIndex = 0;
                } else if (event.key === Qt.Key_End) {
                    list.currentIndex = list.count - 1;
                } else if (event.text !== "" && event.modifiers === Qt.NoModifier) {
                    root.find(event.text);
                } else {
                    return;
                }
                event.accepted = true;
            }
            Keys.onReturnPressed: event => root.choose(event)
            Keys.onSpacePressed: event => root.choose(event)
            Keys.onTabPressed: root.closed()
            Keys.onUpPressed: list.decrementCurrentIndex()

            delegate: MouseArea {
                id: option

                required property int index
                required property string modelData
                readonly property bool highlighted: option.ListView.isCurrentItem

                Accessible.checkable: true
                Accessible.checked: option.index === root.current
                Accessible.focused: option.highlighted
                Accessible.name: option.modelData
                Accessible.role: Accessible.ListItem
                Accessible.selected: option.highlighted
                height: list.rowHeight
                hoverEnabled: true
                width: list.width

                Accessible.onPressAction: root.chosen(option.index)
                onClicked: root.chosen(option.index)
                onPositionChanged: list.currentIndex = option.index

                RoundedRect {
                    anchors.fill: parent
                    color: Qt.rgba(1, 1, 1, 0.11)
                    radius: 7
                    visible: option.highlighted
                }
                Label {
                    anchors.left: parent.left
                    anchors.leftMargin: 8
                    anchors.right: check.left
                    anchors.rightMargin: 6
                    anchors.verticalCenter: parent.verticalCenter
                    font.pixelSize: 13
                    text: option.modelData
                }
                Symbol {
                    id: check

                    anchors.right: parent.right
                    anchors.rightMargin: 8
                    anchors.verticalCenter: parent.verticalCenter
                    color: Theme.accent
                    name: "checkmark"
                    size: 10
                    visible: option.index === root.current
                }
            }
        }
    }
}
