pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Perchly.Look

/// A list of options above the window's content, as wide as its parent and below or above it,
/// wherever there is more room. Destroyed when closed.
T.Popup {
    id: root

    /// The accessible name.
    required property string label
    required property list<string> options
    /// The option with the checkmark; -1 for none.
    required property int current
    /// The item that gets the keyboard when the list closes.
    property Item opener: root.parent

    signal chosen(int index)

    function choose(index: int) {
        root.close();
        root.chosen(index);
    }

    /// Ignores a held key, which may have opened the list.
    function chooseByKey(event: KeyEvent) {
        if (!event.isAutoRepeat && list.currentIndex >= 0) {
            root.choose(list.currentIndex);
        }
    }

    /// Goes to the next option that starts with the typed text.
    function find(typed: var) {
        const wanted = typed.toLocaleLowerCase();
        const fits = option => option.toLocaleLowerCase().startsWith(wanted);
        const after = root.options.slice(list.currentIndex + 1).findIndex(fits);
        const found = after >= 0 ? list.currentIndex + 1 + after : root.options.findIndex(fits);
        if (found >= 0) {
            list.currentIndex = found;
        }
    }

    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutside
    focus: true
    modal: true // a press outside only closes it
    padding: 5

    background: RoundedRect {
        borderColor: Qt.rgba(1, 1, 1, 0.16)
        borderWidth: 1
        color: Qt.rgba(0.11, 0.115, 0.13, 1)
        radius: 10
    }
    onAboutToShow: {
        root.contentItem.parent.Accessible.ignored = true; // the list has the accessible name
        const gap = 4;
        const edge = 8;
        const top = root.parent.mapToItem(null, 0, 0).y;
        const above = top - gap - edge;
        const below = root.parent.Window.height - top - root.parent.height - gap - edge;
        const wanted = root.options.length * 30 + 2 * root.padding;
        const downwards = wanted <= below || below >= above;
        root.height = Math.min(wanted, downwards ? below : above);
        root.width = root.parent.width;
        root.y = downwards ? root.parent.height + gap : -gap - root.height;
    }
    onClosed: {
        if (root.opener.visible) {
            root.opener.forceActiveFocus();
        }
        root.destroy();
    }
    onOpened: {
        list.currentIndex = root.current;
        list.positionViewAtIndex(Math.max(0, root.current), ListView.Contain);
    }

    ListView {
        id: list

        Accessible.name: root.label
        Accessible.role: Accessible.List
        anchors.fill: parent
        boundsBehavior: Flickable.StopAtBounds
        clip: true
        focus: true
        highlightMoveDuration: 0
        model: root.options

        Keys.onBacktabPressed: root.close()
        Keys.onEnterPressed: event => root.chooseByKey(event)
        Keys.onPressed: event => {
            event.accepted = true;
            if (event.key === Qt.Key_Home) {
                list.currentIndex = 0;
            } else if (event.key === Qt.Key_End) {
                list.currentIndex = list.count - 1;
            } else if (event.text !== "" && event.modifiers === Qt.NoModifier && event.key !== Qt.Key_Escape) {
                root.find(event.text);
            } else {
                event.accepted = false;
            }
        }
        Keys.onReturnPressed: event => root.chooseByKey(event)
        Keys.onSpacePressed: event => root.chooseByKey(event)
        Keys.onTabPressed: root.close()

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
            height: 30
            hoverEnabled: true
            width: list.width

            Accessible.onPressAction: root.choose(option.index)
            onClicked: root.choose(option.index)
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

    // Closes with its parent and its window.
    Connections {
        target: root.parent

        function onVisibleChanged() {
            root.close();
        }
    }
    Connections {
        target: root.parent ? root.parent.Window.window : null

        function onActiveChanged() {
            root.close();
        }
        function onHeightChanged() {
            root.close();
        }
        function onWidthChanged() {
            root.close();
        }
    }
}
