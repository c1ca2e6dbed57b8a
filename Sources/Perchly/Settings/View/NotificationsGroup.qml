import QtQuick
import Perchly.Look
import Perchly.Stores

/// What desktop notifications tell of.
FormGroup {
    id: root

    required property ShelfPreferences preferences

    GroupHeader {
        text: qsTr("Desktop notifications")
    }
    SwitchRow {
        checked: root.preferences.announceFocus
        text: qsTr("Focus session or break over")
        width: parent.width

        onToggled: checked => root.preferences.announceFocus = checked
    }
    SwitchRow {
        checked: root.preferences.announceShortcuts
        text: qsTr("Shortcut finished or failed")
        width: parent.width

        onToggled: checked => root.preferences.announceShortcuts = checked
    }
    SwitchRow {
        checked: root.preferences.announceCaptures
        text: qsTr("Capture taken")
        width: parent.width

        onToggled: checked => root.preferences.announceCaptures = checked
    }
    SwitchRow {
        checked: root.preferences.announceFailures
        text: qsTr("Command or launch failed")
        width: parent.width

        onToggled: checked => root.preferences.announceFailures = checked
    }
    SwitchRow {
        checked: root.preferences.announceMeetings
        text: qsTr("Meeting starting in 5 minutes")
        width: parent.width

        onToggled: checked => root.preferences.announceMeetings = checked
    }
}
