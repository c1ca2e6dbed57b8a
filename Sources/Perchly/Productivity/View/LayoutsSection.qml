pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Perchly.Look
import Perchly.Stores
import Perchly.Productivity
import Perchly.Extensions

/// Named setups of the shelf.
ColumnLayout {
    id: root

    required property Productivity tools
    required property ExtrasDrafts drafts

    function save() {
        if (save.usable) {
            root.tools.layouts.save(field.text);
            field.clear();
        }
    }

    spacing: 12

    SecondaryText {
        Layout.fillWidth: true
        text: qsTr("Save the current apps, widgets, favorites, order, and pinned slots.")
    }
    RowLayout {
        Layout.fillWidth: true
        spacing: 8

        TextEntry {
            id: field

            Layout.fillWidth: true
            placeholder: qsTr("Layout name, e.g. Work")
            text: root.drafts.layoutName

            onAccepted: root.save()
            onTextChanged: root.drafts.layoutName = field.text
        }
        PushButton {
            id: save

            text: qsTr("Save current")
            usable: field.text.trim() !== ""

            onActivated: root.save()
        }
    }
    ScrollList {
        Layout.fillHeight: true
        Layout.fillWidth: true
        fallback: field
        label: qsTr("Layouts")
        model: root.tools.layouts
        placeholder: qsTr("No saved layouts yet.")

        delegate: ListRow {
            id: layout

            required property var row

            text: layout.row.name

            RowButton {
                subject: layout.text
                text: qsTr("Apply")

                onActivated: root.tools.layouts.apply(layout.row.id)
            }
            RowButton {
                subject: layout.text
                text: qsTr("Delete")

                onActivated: root.tools.layouts.remove(layout.row.id)
            }
        }
    }
}
