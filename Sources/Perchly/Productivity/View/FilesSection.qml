pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Perchly.Look
import Perchly.Stores
import Perchly.Productivity

/// Held files and links: dropped here, dragged out again.
ColumnLayout {
    id: root

    required property Productivity tools
    required property ShelfExtras extras
    required property ProductivityView workspace

    readonly property HeldFiles held: root.tools.held
    readonly property bool some: root.held.count > 0

    function addLink() {
        if (root.held.addLink(field.text)) {
            field.text = "";
            root.workspace.link = "";
        }
    }

    function remove(url: url) {
        const row = list.focusedRow();
        const control = list.focusedControl();
        root.held.remove(url);
        if (root.some) {
            list.focusRow(row, control);
        } else {
            add.forceActiveFocus(Qt.TabFocusReason);
        }
    }

    spacing: 12

    Connections {
        target: root.workspace

        function onAppeared() {
            root.held.lookAgain();
        }
    }
    Connections {
        target: root.Window.window

        // Whatever deleted a file meanwhile was another window.
        function onActiveChanged() {
            if (root.Window.active) {
                root.held.lookAgain();
            }
        }
    }

    SecondaryText {
        Layout.fillWidth: true
        text: "Drop files, images, or links here. Drag them into another app when you need them."
    }

    RowLayout {
        Layout.fillWidth: true
        spacing: 8

        PushButton {
            id: add

            text: "Add files…"

            onActivated: root.held.addFiles()
        }
        TextEntry {
            id: field

            Layout.fillWidth: true
            placeholder: "https://…"

            Component.onCompleted: field.text = root.workspace.link
            onAccepted: root.addLink()
            onEdited: root.workspace.link = field.text
        }
        PushButton {
            text: "Add link"

            onActivated: root.addLink()
        }
        PushButton {
            text: "Clear"

            onActivated: root.held.clear()
        }
    }

    RoundedRect {
        id: area

        Accessible.name: "Drop area"
        Accessible.role: Accessible.Grouping
        Layout.fillHeight: true
        Layout.fillWidth: true
        Layout.minimumHeight: 120 // in the smallest window, with a notice
        Layout.preferredHeight: root.some ? 240 : 180
        color: Qt.rgba(1, 1, 1, 0.025)
        radius: 12

        DropArea {
            anchors.fill: parent
            keys: ["text/uri-list"]

            onDropped: drop => {
                if (!root.held.holdDropped(drop.getDataAsString("text/uri-list"))) {
                    root.held.hold(drop.urls); // told in another form
                }
                drop.accept(Qt.CopyAction);
            }
            // Only references are kept: a source that were told "move" would delete what it gave.
            onEntered: drag => drag.accept(Qt.CopyAction)
            onPositionChanged: drag => drag.accept(Qt.CopyAction)
        }
        SecondaryText {
            anchors.centerIn: parent
            text: "Drop here"
            visible: !root.some
        }
        DragPlate {
            id: all

            Accessible.name: all.label
            Accessible.role: Accessible.StaticText
            anchors.left: parent.left
            anchors.margins: 10
            anchors.right: parent.right
            anchors.top: parent.top
            height: 38 // so that three rows fit into the window's first size
            label: "Drag all " + root.held.count
            urls: root.held.urls
            visible: root.held.count > 1

            RowLayout {
                anchors.left: parent.left
                anchors.right: parent.right
                anchors.verticalCenter: parent.verticalCenter
                spacing: 9

                Symbol {
                    color: Theme.mint
                    name: "tray.fill"
                    size: 12
                }
                Label {
                    Layout.fillWidth: true
                    color: Theme.grey
                    font.pixelSize: 12
                    text: all.label
                }
                PushButton {
                    size: 11
                    text: "Copy all"

                    onActivated: root.tools.clipboard.copyItems(root.held.urls)
                }
            }
        }
        ScrollList {
            id: list

            anchors.bottom: parent.bottom
            anchors.left: parent.left
            anchors.margins: 10
            anchors.right: parent.right
            anchors.top: all.visible ? all.bottom : parent.top
            anchors.topMargin: all.visible ? 8 : 10
            label: "Held files and links"
            model: root.held
            visible: root.some

            delegate: HeldRow {
                id: entry

                width: ListView.view.width
                extras: root.extras
                tools: root.tools

                onRemoved: root.remove(entry.row.url)
            }
        }
    }

    CaptionText {
        Layout.fillWidth: true
        color: Theme.grey
        text: "Temporary references only. Originals are never moved or deleted; this tray clears when Perchly quits."
    }
}
