pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Perchly.Look
import Perchly.Stores
import Perchly.Productivity

/// Named setups of the shelf.
ColumnLayout {
    id: root

    required property Productivity tools
    required property ProductivityView workspace

    function save() {
        if (save.enabled) {
            root.tools.layouts.save(field.text);
            field.text = "";
            root.workspace.layoutName = "";
        }
    }

    function remove(id: string) {
        const row = list.focusedRow();
        const control = list.focusedControl();
        root.tools.layouts.remove(id);
        if (root.tools.layouts.count > 0) {
            list.focusRow(row, control);
        } else {
            field.forceActiveFocus(Qt.TabFocusReason);
        }
    }

    spacing: 12

    SecondaryText {
        Layout.fillWidth: true
        text: "Save the current apps, widgets, favorites, order, and pinned slots."
    }
    RowLayout {
        Layout.fillWidth: true
        spacing: 8

        TextEntry {
            id: field

            Layout.fillWidth: true
            placeholder: "Layout name, e.g. Work"

            Component.onCompleted: field.text = root.workspace.layoutName
            onAccepted: root.save()
            onEdited: root.workspace.layoutName = field.text
        }
        PushButton {
            id: save

            enabled: field.text.trim() !== ""
            text: "Save current"

            onActivated: root.save()
        }
    }
    ScrollList {
        id: list

        Layout.fillHeight: true
        Layout.fillWidth: true
        label: "Layouts"
        model: root.tools.layouts
        placeholder: "No saved layouts yet."

        delegate: RowCard {
            id: layout

            required property var row

            Accessible.name: layout.row.name
            Accessible.role: Accessible.ListItem
            width: ListView.view.width

            RowLayout {
                spacing: 8
                width: parent.width

                Label {
                    Accessible.ignored: true
                    Layout.fillWidth: true
                    Layout.leftMargin: 4
                    font.pixelSize: 13
                    text: layout.row.name
                }
                PushButton {
                    Accessible.description: layout.row.name
                    size: 12
                    text: "Apply"

                    onActivated: root.tools.layouts.apply(layout.row.id)
                }
                PushButton {
                    Accessible.description: layout.row.name
                    size: 12
                    text: "Delete"

                    onActivated: root.remove(layout.row.id)
                }
            }
        }
    }
}
