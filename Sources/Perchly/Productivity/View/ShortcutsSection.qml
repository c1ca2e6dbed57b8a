pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Perchly.Look
import Perchly.Stores
import Perchly.Productivity

/// The user's shortcuts, listed again each time the section appears.
ColumnLayout {
    id: root

    required property Productivity tools

    function refresh() {
        if (root.Window.window?.visible) {
            root.tools.shortcuts.refresh();
        }
    }

    spacing: 12

    Component.onCompleted: root.refresh()

    Connections {
        target: root.Window.window

        function onVisibleChanged() {
            root.refresh();
        }
    }

    RowLayout {
        Layout.fillWidth: true
        spacing: 8

        Label {
            Accessible.name: text
            Accessible.role: Accessible.Heading
            Layout.fillWidth: true
            font.pixelSize: 14
            font.weight: Font.DemiBold
            text: qsTr("Run your shortcuts")
        }
        PushButton {
            text: qsTr("Stop")
            toolTip: root.tools.shortcuts.busy
            visible: root.tools.shortcuts.busyIsUnlisted

            onActivated: root.tools.shortcuts.stop()
        }
        PushButton {
            text: qsTr("Refresh")

            onActivated: root.tools.shortcuts.refresh()
        }
    }
    CaptionText {
        Layout.fillWidth: true
        color: Theme.grey
        text: qsTr("A shortcut runs with your permissions: it may do anything that you may.")
    }
    ScrollList {
        Layout.fillHeight: true
        Layout.fillWidth: true
        label: qsTr("Shortcuts")
        model: root.tools.shortcuts

        delegate: ListRow {
            id: shortcut

            required property var row
            readonly property bool running: root.tools.shortcuts.busy === shortcut.row.name

            text: shortcut.row.label

            leading: Symbol {
                color: Theme.purple
                name: "square.stack.3d.up.fill"
                size: 15
            }

            CaptionText {
                color: Theme.accent
                text: qsTr("Running")
                visible: shortcut.running
            }
            RowButton {
                id: add

                done: qsTr("Added")
                subject: shortcut.text
                text: qsTr("Add to shelf")

                onActivated: {
                    root.tools.shortcuts.addToShelf(shortcut.row.name);
                    add.confirm();
                }
            }
            RowButton {
                subject: shortcut.text
                text: qsTr("Run")
                usable: root.tools.shortcuts.busy === ""

                onActivated: root.tools.shortcuts.run(shortcut.row.name)
            }
            RowButton {
                id: stop

                subject: shortcut.text
                text: qsTr("Stop")
                visible: shortcut.running

                onActivated: root.tools.shortcuts.stop()
                onVisibleChanged: stop.cameAt = Date.now() // it replaces “Run”
            }
        }
    }
    RowLayout {
        Layout.fillWidth: true
        spacing: 12
        visible: root.tools.shortcuts.folder !== ""

        CaptionText {
            Layout.fillWidth: true
            color: Theme.grey
            text: (root.tools.shortcuts.count === 0 ? qsTr("Open the folder to make your first shortcut: every executable file in it is one.") : qsTr("Every executable file in this folder is a shortcut.")) + "\n" + root.tools.shortcuts.folder
        }
        PushButton {
            size: 12
            text: qsTr("Open folder")

            onActivated: root.tools.shortcuts.openFolder()
        }
    }
}
