pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Perchly.Look
import Perchly.Stores
import Perchly.Settings

/// Every entry of the library and its actions.
ColumnLayout {
    id: root

    required property ShelfLibrary library

    spacing: 14

    SwitchRow {
        Layout.fillWidth: true
        checked: root.library.favoritesOnly
        text: qsTr("Show only favorites in the shelf")

        onToggled: checked => root.library.favoritesOnly = checked
    }
    CaptionText {
        Layout.fillWidth: true
        color: Theme.grey
        text: qsTr("Use the eye to show or hide, the star to favorite, and arrows to rearrange.")
    }
    ScrollList {
        id: entries

        Layout.fillHeight: true
        Layout.fillWidth: true
        label: qsTr("Shelf entries")

        model: root.library
        placeholder: qsTr("Nothing is on your shelf. Add something under “Apps”.")

        delegate: EntryRow {
            library: root.library
            list: entries
            someRemovable: root.library.someRemovable
        }
    }
}
