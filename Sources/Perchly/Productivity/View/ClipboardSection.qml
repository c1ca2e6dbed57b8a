pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Perchly.Look
import Perchly.Stores
import Perchly.Productivity

/// The clipboard history and its switches.
ColumnLayout {
    id: root

    required property Productivity tools
    required property ShelfExtras extras
    required property ProductivityView workspace

    function remove(id: string) {
        const row = list.focusedRow();
        const control = list.focusedControl();
        root.tools.clipboard.remove(id);
        if (root.tools.clipboard.count > 0) {
            list.focusRow(row, control);
        } else {
            field.forceActiveFocus(Qt.TabFocusReason);
        }
    }

    spacing: 12

    SwitchRow {
        Layout.fillWidth: true
        checked: root.tools.clipboard.enabled
        text: "Enable clipboard history for this session"

        onToggled: checked => root.tools.clipboard.enabled = checked
    }
    CaptionText {
        Layout.fillWidth: true
        color: Theme.grey
        text: "Keeps up to 30 text/image copies in memory. Clears on quit. Copies marked confidential by their source app are skipped."
    }
    RowLayout {
        Layout.fillWidth: true

        SwitchRow {
            Layout.preferredWidth: implicitWidth
            checked: root.tools.clipboard.paused
            text: "Pause"

            onToggled: checked => root.tools.clipboard.paused = checked
        }
        Item {
            Layout.fillWidth: true
        }
        PushButton {
            text: "Clear history"

            onActivated: root.tools.clipboard.clear()
        }
    }
    TextEntry {
        id: field

        Layout.fillWidth: true
        placeholder: "Search copied text"
        symbol: "magnifyingglass"

        Component.onCompleted: field.text = root.tools.clipboard.search
        onEdited: root.tools.clipboard.search = field.text
    }
    ScrollList {
        id: list

        Layout.fillHeight: true
        Layout.fillWidth: true
        label: "Clipboard history"
        model: root.tools.clipboard
        placeholder: root.tools.clipboard.search !== "" ? "No copied text matches." : root.tools.clipboard.enabled ? "Nothing was copied yet." : "Enable the history to keep what you copy from now on."

        delegate: ClipRow {
            id: clip

            tools: root.tools
            width: ListView.view.width

            onCopied: root.tools.clipboard.copyClip(clip.row.id)
            onPinned: {
                if (root.extras.snippets.pin(clip.row.text)) {
                    clip.confirmPin();
                }
            }
            onRemoved: root.remove(clip.row.id)
        }
    }
}
