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
    required property ProductivityView workspace

    spacing: 12

    Component.onCompleted: {
        if (root.workspace.shown) {
            root.tools.shortcuts.refresh();
        }
    }

    Connections {
        target: root.workspace

        function onAppeared() {
            root.tools.shortcuts.refresh();
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

            onActivated: root.tools.shortcuts.refresh()
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
        model: root.tools.shortcuts

        delegate: RowCard {
            id: shortcut

            required property var row
            readonly property bool running: root.tools.shortcuts.busy === shortcut.row.name

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
                        root.tools.shortcuts.addToShelf(shortcut.row.name);
                        add.confirm();
                    }
                }
                PushButton {
                    id: run

                    Accessible.description: shortcut.row.label
                    enabled: root.tools.shortcuts.busy === ""
                    size: 12
                    text: "Run"

                    onActivated: {
                        const hadKeyboard = run.activeFocus;
                        root.tools.shortcuts.run(shortcut.row.name);
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

                    onActivated: root.tools.shortcuts.stop()
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
        visible: root.tools.shortcuts.folder !== ""

        CaptionText {
            Layout.fillWidth: true
            color: Theme.grey
            text: (root.tools.shortcuts.count === 0 ? "Open the folder to make your first shortcut: every executable file in it is one.\n" : "Every executable file in this folder is a shortcut.\n") + root.tools.shortcuts.folder
        }
        PushButton {
            size: 12
            text: "Open folder"

            onActivated: root.tools.shortcuts.openFolder()
        }
    }
}
