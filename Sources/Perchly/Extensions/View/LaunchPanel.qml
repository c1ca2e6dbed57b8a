pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Perchly.Look
import Perchly.Stores
import Perchly.Extensions

/// Applications, files and links that are opened together.
ColumnLayout {
    id: root

    required property ShelfExtras extras
    required property ExtrasDrafts drafts

    function save() {
        if (save.enabled) {
            root.extras.groups.save(field.text);
            field.text = "";
            root.drafts.groupName = "";
        }
    }

    function remove(id: string) {
        const row = list.focusedRow();
        const control = list.focusedControl();
        root.extras.groups.remove(id);
        if (root.extras.groups.count === 0) {
            field.forceActiveFocus(Qt.TabFocusReason);
        } else if (row >= 0) {
            list.focusRow(row, control);
        }
    }

    spacing: 12

    RowLayout {
        Layout.fillWidth: true
        spacing: 8

        TextEntry {
            id: field

            Layout.fillWidth: true
            placeholder: "Workspace name"

            Component.onCompleted: field.text = root.drafts.groupName
            onAccepted: root.save()
            onEdited: root.drafts.groupName = field.text
        }
        PushButton {
            id: save

            Layout.preferredHeight: field.height
            enabled: field.text.trim() !== ""
            text: "Save current"

            onActivated: root.save()
        }
    }
    CaptionText {
        Layout.fillWidth: true
        color: Theme.grey
        text: "Save visible shelf apps together with the files and links currently in your tray."
    }
    ScrollList {
        id: list

        Layout.fillHeight: true
        Layout.fillWidth: true
        label: "Launch groups"
        placeholder: "No launch groups yet."
        model: root.extras.groups

        delegate: RowCard {
            id: group

            required property var row

            Accessible.description: group.row.contents
            Accessible.name: group.row.name
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
                ColumnLayout {
                    Layout.fillWidth: true
                    Layout.leftMargin: 4
                    spacing: 3

                    Label {
                        Accessible.ignored: true
                        Layout.fillWidth: true
                        font.pixelSize: 13
                        font.weight: Font.Medium
                        text: group.row.name
                    }
                    CaptionText {
                        Layout.fillWidth: true
                        color: Theme.grey
                        maximumLineCount: 3
                        text: group.row.contents
                        visible: group.row.contents !== ""
                    }
                }
                PushButton {
                    Accessible.description: group.row.name
                    size: 12
                    text: "Launch"

                    onActivated: root.extras.groups.launch(group.row.id)
                }
                PushButton {
                    Accessible.description: group.row.name
                    size: 12
                    text: "Delete"

                    onActivated: root.remove(group.row.id)
                }
            }
        }
    }
}
