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

    spacing: 12

    SwitchRow {
        Layout.fillWidth: true
        checked: root.tools.clipboard.enabled
        text: qsTr("Enable clipboard history for this session")

        onToggled: checked => root.tools.clipboard.enabled = checked
    }
    CaptionText {
        Layout.fillWidth: true
        color: Theme.grey
        text: qsTr("Keeps up to 30 text/image copies in memory. Clears on quit. Copies marked confidential by their source app are skipped.")
    }
    RowLayout {
        Layout.fillWidth: true

        SwitchRow {
            Layout.preferredWidth: implicitWidth
            checked: root.tools.clipboard.paused
            text: qsTr("Pause")

            onToggled: checked => root.tools.clipboard.paused = checked
        }
        Item {
            Layout.fillWidth: true
        }
        PushButton {
            text: qsTr("Clear history")

            onActivated: root.tools.clipboard.clear()
        }
    }
    TextEntry {
        id: field

        Layout.fillWidth: true
        placeholder: qsTr("Search copied text")
        symbol: "search"
        text: root.tools.clipboard.search

        onTextChanged: root.tools.clipboard.search = field.text
    }
    ScrollList {
        Layout.fillHeight: true
        Layout.fillWidth: true
        fallback: field
        label: qsTr("Clipboard history")
        model: root.tools.clipboard
        placeholder: root.tools.clipboard.search !== "" ? qsTr("No copied text matches.") : root.tools.clipboard.enabled ? qsTr("Nothing was copied yet.") : qsTr("Enable the history to keep what you copy from now on.")

        delegate: ClipRow {
            extras: root.extras
            tools: root.tools
        }
    }
}
