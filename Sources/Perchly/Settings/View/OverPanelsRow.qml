import QtQuick
import Perchly.Look
import Perchly.Stores

/// Whether the shelf covers the desktop's panels.
SwitchRow {
    id: root

    required property ShelfPreferences preferences

    checked: root.preferences.overPanels
    text: qsTr("Over panels")

    onToggled: checked => root.preferences.overPanels = checked
}
