import QtQuick
import Perchly.Look
import Perchly.Stores

/// Look and behaviour of the shelf. Every change takes effect at once.
ScrollArea {
    id: root

    required property ShelfPreferences preferences
    required property ShelfHotKey hotKey

    spacing: 12

    onVisibleChanged: {
        if (root.visible) {
            root.preferences.refresh();
        }
    }

    FormGroup {
        width: parent.width

        PickerRow {
            currentIndex: root.preferences.themes.indexOf(root.preferences.theme)
            options: [qsTr("Midnight"), qsTr("Graphite"), qsTr("Ocean")]
            text: qsTr("Theme")

            onChosen: index => root.preferences.theme = root.preferences.themes[index]
        }
        PickerRow {
            currentIndex: root.preferences.accents.indexOf(root.preferences.accent)
            options: [qsTr("Mint"), qsTr("Blue"), qsTr("Purple"), qsTr("Orange")]
            text: qsTr("Accent")

            onChosen: index => root.preferences.accent = root.preferences.accents[index]
        }
        SliderRow {
            current: root.preferences.opacity
            to: 1
            from: 0.65
            stepSize: 0.05
            text: qsTr("Opacity")
            valueText: qsTr("%1%").arg(Math.round(root.preferences.opacity * 100))

            onAsked: value => root.preferences.opacity = value
        }
        SwitchRow {
            checked: root.preferences.compact
            text: qsTr("Compact shelf content")
            width: parent.width

            onToggled: checked => root.preferences.compact = checked
        }
    }
    FormGroup {
        width: parent.width

        PickerRow {
            currentIndex: root.preferences.display
            options: root.preferences.displays
            text: qsTr("Display")

            onChosen: index => root.preferences.display = index
        }
        PickerRow {
            currentIndex: root.preferences.edges.indexOf(root.preferences.edge)
            options: [qsTr("Top"), qsTr("Left"), qsTr("Right")]
            text: qsTr("Screen edge")

            onChosen: index => root.preferences.edge = root.preferences.edges[index]
        }
        OverPanelsRow {
            preferences: root.preferences
            width: parent.width
        }
        PushButton {
            text: qsTr("Reset position to top center")

            onActivated: root.preferences.resetPosition()
        }
        SecondaryText {
            font.pixelSize: 12
            text: qsTr("Drag the shelf header to dock on the top, left, or right edge. Your position saves automatically.")
            width: parent.width
        }
    }
    FormGroup {
        width: parent.width

        SliderRow {
            current: root.preferences.scale
            to: 1.2
            from: 0.85
            stepSize: 0.05
            text: qsTr("Shelf size")
            // Floating-point 1.15 is a little less than 115 per cent.
            valueText: qsTr("%1%").arg(Math.floor(root.preferences.scale * 100 + 1e-9))

            onAsked: value => root.preferences.scale = value
        }
        SwitchRow {
            checked: root.preferences.openOnHover
            text: qsTr("Expand on hover")
            width: parent.width

            onToggled: checked => root.preferences.openOnHover = checked
        }
        OpeningDelayRow {
            preferences: root.preferences
        }
        SliderRow {
            current: root.preferences.hoverDelay
            to: 1.5
            from: 0.2
            stepSize: 0.1
            text: qsTr("Collapse delay")
            valueText: qsTr("%1 s").arg(root.preferences.hoverDelay.toLocaleString(Qt.locale(), "f", 1))

            onAsked: value => root.preferences.hoverDelay = value
        }
    }
    KeysGroup {
        hotKey: root.hotKey
        width: parent.width

        onTold: words => root.reveal(words)
    }
    FormGroup {
        width: parent.width

        SwitchRow {
            checked: root.preferences.login
            text: qsTr("Launch at login")
            width: parent.width

            onToggled: checked => root.preferences.login = checked
        }
        SecondaryText {
            font.pixelSize: 12
            text: !root.hotKey.isSupported ? qsTr("Keyboard: %1 launches the corresponding visible app while the shelf is open. Escape closes it.").arg(root.preferences.launchKeys) : qsTr("Keyboard: %1 opens search. %2 toggles the shelf. %3 launches the corresponding visible app while the shelf is open. Escape closes it.").arg(root.hotKey.searchText).arg(root.hotKey.toggleText).arg(root.preferences.launchKeys)
            width: parent.width
        }
        BodyText {
            id: failure

            Accessible.role: Accessible.AlertMessage
            color: Theme.orange
            font.pixelSize: 12
            text: root.preferences.error
            visible: root.preferences.error !== ""
            width: parent.width

            onTextChanged: {
                if (failure.text !== "" && root.visible) {
                    root.reveal(failure);
                }
            }
        }
        SecondaryText {
            font.pixelSize: 11
            text: qsTr("Install Perchly before you turn on launch at login.")
            width: parent.width
        }
    }
    NotificationsGroup {
        preferences: root.preferences
        width: parent.width
    }
}
