pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Perchly.Look
import Perchly.Stores
import Perchly.Productivity

/// The person's shortcuts, listed anew whenever the section appears.
ColumnLayout {
    id: root

    required property Productivity tools
    required property ShelfLibrary library
    required property ProductivityView workspace

    spacing: 12

    Component.onCompleted: {
        if (root.workspace.shown) {
            root.tools.refreshShortcuts();
        }
    }

    ShortcutRows {
        id: rows

        tools: root.tools
    }
    Connections {
        target: root.workspace

        function onAppeared() {
            root.tools.refreshShortcuts();
        }
    }

    RowLayout {
        Layout.fillWidth: true

        Label {
            Accessible.name: text
            Accessible.role: Accessible.Heading
            Layout.fillWidth: true
            font.pixelSize: 14
            font.weight: Font.DemiBold
            text: "Run your Apple Shortcuts"
        }
        PushButton {
            text: "Refresh"

            onActivated: root.tools.refreshShortcuts()
        }
    }
    CaptionText {
        Layout.fillWidth: true
        color: Theme.grey
        text: "Shortcuts run their configured actions, including any app permissions they request."
    }
    ScrollList {
        id: list

        Layout.fillHeight: true
        Layout.fillWidth: true
        label: "Shortcuts"
        model: rows

        delegate: RowCard {
            id: shortcut

            required property var row
            readonly property bool running: root.tools.busyShortcut === shortcut.row.name

            Accessible.name: shortcut.row.label
            Accessible.role: Accessible.ListItem
            width: ListView.view.width

            RowLayout {
                spacing: 8
                width: parent.width

                Symbol {
                    Layout.leftMargin: 4
                    color: Theme.purple
                    name: "square.stack.3d.up.fill"
                    size: 15
                }
                Label {
                    Accessible.ignored: true
                    Layout.fillWidth: true
                    font.pixelSize: 13
                    text: shortcut.row.label
                }
                CaptionText {
                    color: Theme.accent
                    text: "Running"
                    visible: shortcut.running
                }
                PushButton {
                    id: add

                    Accessible.description: shortcut.row.label
                    done: "Added"
                    size: 12
                    text: "Add to shelf"

                    onActivated: {
                        root.tools.addToShelf(shortcut.row.name, root.library);
                        add.confirm();
                    }
                }
                PushButton {
                    id: run

                    Accessible.description: shortcut.row.label
                    enabled: root.tools.busyShortcut === ""
                    size: 12
                    text: "Run"

                    onActivated: {
                        const hadKeyboard = run.activeFocus;
                        root.tools.runShortcut(shortcut.row.name);
                        // Not to “Stop”, which a second press would hit.
                        if (hadKeyboard && !run.enabled) {
                            shortcut.forceActiveFocus(Qt.TabFocusReason);
                        }
                    }
                    onEnabledChanged: {
                        if (run.enabled && shortcut.activeFocus) {
                            run.forceActiveFocus(Qt.TabFocusReason);
                        }
                    }
                }
                PushButton {
                    id: stop

                    Accessible.description: shortcut.row.label
                    size: 12
                    text: "Stop"
                    visible: shortcut.running

                    onActivated: root.tools.stopShortcut()
                    onVisibleChanged: {
                        stop.cameAt = Date.now(); // where “Run” was
                        if (!stop.visible && stop.focus) {
                            run.forceActiveFocus(Qt.TabFocusReason);
                        }
                    }
                }
            }
        }
    }
    RowLayout {
        Layout.fillWidth: true
        spacing: 12
        visible: root.tools.shortcutsFolder !== ""

        CaptionText {
            Layout.fillWidth: true
            color: Theme.grey
            text: (rows.count === 0 ? "Open the folder to make your first shortcut: every executable file in it is one.\n" : "Every executable file in this folder is a shortcut.\n") + root.tools.shortcutsFolder
        }
        PushButton {
            size: 12
            text: "Open folder"

            onActivated: root.tools.openShortcutsFolder()
        }
    }
}
