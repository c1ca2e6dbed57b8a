pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Perchly.Look
import Perchly.Stores

/// Installed applications that can be added to the shelf.
ColumnLayout {
    id: root

    required property ShelfLibrary library

    spacing: 14

    Keys.onDownPressed: event => {
        event.accepted = search.activeFocus && list.focusFrom(0, 1, 0);
    }

    Keys.onUpPressed: event => {
        // The list has not accepted the key, so there is no row above.
        event.accepted = list.view.activeFocus;
        if (event.accepted) {
            search.forceActiveFocus(Qt.BacktabFocusReason);
        }
    }

    RowLayout {
        Layout.fillWidth: true
        spacing: 10

        TextEntry {
            id: search

            Layout.fillWidth: true
            placeholder: qsTr("Search installed apps")
            symbol: "search"

            onTextChanged: list.startOver()
        }
        PushButton {
            Layout.preferredHeight: search.height
            text: qsTr("Browse…")

            onActivated: root.library.browse()
        }
    }
    ScrollList {
        id: list

        Layout.fillHeight: true
        Layout.fillWidth: true
        cacheBuffer: 0 // each key would also rebuild rows outside the view
        label: qsTr("Installed apps")
        placeholder: search.text !== "" ? qsTr("No app matches.") : qsTr("No apps found yet.")
        reuseItems: true

        model: InstalledApplications {
            library: root.library
            search: search.text
        }
        delegate: ApplicationRow {
            library: root.library

            onAddedByKey: index => {
                if (!list.focusFrom(index + 1, 1, 0)) {
                    search.forceActiveFocus(Qt.TabFocusReason);
                }
            }
        }
    }
    SecondaryText {
        Layout.fillWidth: true
        font.pixelSize: 11
        text: qsTr("Browse lets you add an app from any other folder.")
    }
}
