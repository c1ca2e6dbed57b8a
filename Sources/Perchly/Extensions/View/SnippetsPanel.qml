pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Perchly.Look
import Perchly.Stores
import Perchly.Extensions

/// Short texts kept for copying.
ColumnLayout {
    id: root

    required property Productivity tools
    required property ShelfExtras extras
    required property ExtrasDrafts drafts

    function pin() {
        if (pin.usable && root.extras.snippets.pin(field.text)) {
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
            placeholder: qsTr("New snippet")
            text: root.drafts.snippet

            onAccepted: root.pin()
            onTextChanged: root.drafts.snippet = field.text
        }
        PushButton {
            id: pin

            Layout.preferredHeight: field.height
            text: qsTr("Pin")
            usable: field.text !== ""

            onActivated: root.pin()
        }
    }
    SwitchRow {
        Layout.fillWidth: true
        checked: root.extras.snippets.persist
        text: qsTr("Keep pinned snippets after quitting")

        onToggled: checked => root.extras.snippets.persist = checked
    }
    CaptionText {
        Layout.fillWidth: true
        color: Theme.grey
        text: qsTr("Only pinned text is saved when enabled. Clipboard history stays in memory.")
    }
    ScrollList {
        Layout.fillHeight: true
        Layout.fillWidth: true
        fallback: field
        label: qsTr("Pinned snippets")
        placeholder: qsTr("No snippets yet.")
        model: root.extras.snippets

        delegate: ListRow {
            id: snippet

            required property var row

            label.color: snippet.row.isBlank ? Theme.grey : Theme.text
            label.font.italic: snippet.row.isBlank
            label.lineHeight: 1.1
            label.wrapMode: Text.Wrap
            text: snippet.row.label

            RowButton {
                subject: snippet.text
                text: qsTr("Copy")

                onActivated: root.tools.clipboard.copyText(snippet.row.text)
            }
            RowButton {
                subject: snippet.text
                text: qsTr("Remove")

                onActivated: root.extras.snippets.remove(snippet.row.id)
            }
        }
    }
}
