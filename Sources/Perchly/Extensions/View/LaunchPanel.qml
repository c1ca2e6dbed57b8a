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
        if (save.usable) {
            root.extras.groups.save(field.text);
            field.clear();
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
            text: root.drafts.groupName

            onAccepted: root.save()
            onTextChanged: root.drafts.groupName = field.text
        }
        PushButton {
            id: save

            Layout.preferredHeight: field.height
            text: "Save current"
            usable: field.text.trim() !== ""

            onActivated: root.save()
        }
    }
    CaptionText {
        Layout.fillWidth: true
        color: Theme.grey
        text: "Save visible shelf apps together with the files and links currently in your tray."
    }
    ScrollList {
        Layout.fillHeight: true
        Layout.fillWidth: true
        fallback: field
        label: "Launch groups"
        placeholder: "No launch groups yet."
        model: root.extras.groups

        delegate: ListRow {
            id: group

            required property var row

            Accessible.description: group.detail
            detail: group.row.contents
            label.font.weight: Font.Medium
            text: group.row.name

            leading: Symbol {
                Layout.rightMargin: 4
                color: Theme.purple
                name: "square.stack.3d.up.fill"
                size: 15
            }

            RowButton {
                subject: group.text
                text: "Launch"

                onActivated: root.extras.groups.launch(group.row.id)
            }
            RowButton {
                subject: group.text
                text: "Delete"

                onActivated: root.extras.groups.remove(group.row.id)
            }
        }
    }
}
