pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Perchly.Look
import Perchly.Stores
import Perchly.Extensions

/// Short texts that are kept for copying again.
ColumnLayout {
    id: root

    required property Productivity tools
    required property ShelfExtras extras
    required property ExtrasDrafts drafts

    function pin() {
        if (pin.enabled && root.extras.snippets.pin(field.text)) {
            field.text = "";
            root.drafts.snippet = "";
        }
    }

    function remove(id: string) {
        const row = list.focusedRow();
        const control = list.focusedControl();
        root.extras.snippets.remove(id);
        if (root.extras.snippets.count === 0) {
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
            placeholder: "New snippet"

            Component.onCompleted: field.text = root.drafts.snippet
            onAccepted: root.pin()
            onEdited: root.drafts.snippet = field.text
        }
        PushButton {
            id: pin

            Layout.preferredHeight: field.height
            enabled: field.text !== ""
            text: "Pin"

            onActivated: root.pin()
        }
    }
    SwitchRow {
        Layout.fillWidth: true
        checked: root.extras.snippets.persist
        text: "Keep pinned snippets after quitting"

        onToggled: checked => root.extras.snippets.persist = checked
    }
    CaptionText {
        Layout.fillWidth: true
        color: Theme.grey
        text: "Only pinned text is saved when enabled. Clipboard history stays in memory."
    }
    ScrollList {
        id: list

        Layout.fillHeight: true
        Layout.fillWidth: true
        label: "Pinned snippets"
        placeholder: "No snippets yet."
        model: root.extras.snippets

        delegate: RowCard {
            id: snippet

            required property var row

            Accessible.name: snippet.row.label
            Accessible.role: Accessible.ListItem
            width: ListView.view.width

            RowLayout {
                spacing: 8
                width: parent.width

                Label {
                    Accessible.ignored: true
                    Layout.fillWidth: true
                    Layout.leftMargin: 4
                    color: snippet.row.isBlank ? Theme.grey : Theme.text
                    font.italic: snippet.row.isBlank
                    font.pixelSize: 13
                    lineHeight: 1.1
                    maximumLineCount: 3
                    text: snippet.row.label
                    wrapMode: Text.Wrap
                }
                PushButton {
                    Accessible.description: snippet.row.label
                    size: 12
                    text: "Copy"

                    onActivated: root.tools.clipboard.copyText(snippet.row.text)
                }
                PushButton {
                    Accessible.description: snippet.row.label
                    size: 12
                    text: "Remove"

                    onActivated: root.remove(snippet.row.id)
                }
            }
        }
    }
}
