pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Perchly.Look
import Perchly.Stores
import Perchly.Productivity
import Perchly.Extensions

/// Held files and links: dropped here, dragged out again.
ColumnLayout {
    id: root

    required property Productivity tools
    required property ShelfExtras extras
    required property ExtrasDrafts drafts

    readonly property HeldFiles held: root.tools.held
    readonly property bool some: root.held.count > 0

    /// Scrolls to the file held last; gives it the keyboard if it came while the section was hidden.
    function showLanded(select: bool) {
        const row = root.held.landed;
        if (row < 0 || !root.Window.window?.visible) {
            return;
        }
        if (select) {
            list.focusRow(row, -1);
        } else {
            list.show(row);
        }
        root.held.landed = -1;
    }

    function addLink() {
        if (root.held.addLink(field.text)) {
            field.clear();
        }
    }

    spacing: 12

    Timer {
        id: appearing

        interval: 0
        running: true

        onTriggered: root.showLanded(true)
    }
    Connections {
        target: root.held

        function onLandedChanged() {
            root.showLanded(false);
        }
    }
    Connections {
        target: root.Window.window

        // Files may have been deleted while another window was active.
        function onActiveChanged() {
            root.held.lookAgain();
        }
        function onVisibleChanged() {
            appearing.restart();
            root.held.lookAgain();
        }
    }

    SecondaryText {
        Layout.fillWidth: true
        text: qsTr("Drop files, images, or links here. Drag them into another app when you need them.")
    }

    RowLayout {
        Layout.fillWidth: true
        spacing: 8

        PushButton {
            id: add

            text: qsTr("Add files…")

            onActivated: root.held.addFiles()
        }
        TextEntry {
            id: field

            Layout.fillWidth: true
            placeholder: "https://…"
            text: root.drafts.link

            onAccepted: root.addLink()
            onTextChanged: root.drafts.link = field.text
        }
        PushButton {
            text: qsTr("Add link")

            onActivated: root.addLink()
        }
        PushButton {
            text: qsTr("Clear")

            onActivated: root.held.clear()
        }
    }

    RoundedRect {
        id: area

        Accessible.name: qsTr("Drop area")
        Accessible.role: Accessible.Grouping
        Layout.fillHeight: true
        Layout.fillWidth: true
        Layout.minimumHeight: 120
        Layout.preferredHeight: root.some ? 240 : 180
        color: Qt.rgba(1, 1, 1, drops.containsDrag ? 0.06 : root.some ? 0 : 0.025)
        radius: 12

        DropArea {
            id: drops

            anchors.fill: parent
            keys: ["text/uri-list"]

            onDropped: drop => {
                if (!root.held.holdDropped(drop.getDataAsString("text/uri-list"))) {
                    root.held.hold(drop.urls); // given as URLs in another format
                }
                drop.accept(Qt.CopyAction);
            }
            // Only references are kept, and a "move" would make the source delete its files.
            onEntered: drag => drag.accept(Qt.CopyAction)
            onPositionChanged: drag => drag.accept(Qt.CopyAction)
        }
        EmptyText {
            text: root.some ? "" : qsTr("Drop here")
        }
        DragPlate {
            id: all

            Accessible.name: all.label
            Accessible.role: Accessible.StaticText
            anchors.left: parent.left
            anchors.right: parent.right
            anchors.top: parent.top
            height: 38 // lets three rows fit into the window's first size
            label: qsTr("Drag all %n", "", root.held.count)
            urls: root.held.urls
            visible: root.held.count > 1

            RowLayout {
                anchors.left: parent.left
                anchors.right: parent.right
                anchors.verticalCenter: parent.verticalCenter
                spacing: 9

                Symbol {
                    color: Theme.accent
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
                    text: qsTr("Copy all")

                    onActivated: root.tools.clipboard.copyItems(root.held.urls)
                }
            }
        }
        ScrollList {
            id: list

            anchors.bottom: parent.bottom
            anchors.left: parent.left
            anchors.right: parent.right
            anchors.top: all.visible ? all.bottom : parent.top
            anchors.topMargin: all.visible ? 8 : 0
            fallback: add
            label: qsTr("Held files and links")
            model: root.held
            visible: root.some

            delegate: HeldRow {
                id: entry

                extras: root.extras
                tools: root.tools

                onClicked: list.select(entry)
            }
        }
    }

    CaptionText {
        Layout.fillWidth: true
        color: Theme.grey
        text: qsTr("Temporary references only. Originals are never moved or deleted; this tray clears when Perchly quits.")
    }
}
