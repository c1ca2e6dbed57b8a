import QtQuick
import Perchly.Look
import Perchly.Stores

/// Look and behaviour of the shelf. Every change takes effect at once.
ScrollArea {
    id: root

    required property ShelfPreferences preferences

    spacing: 12

    onVisibleChanged: {
        if (root.visible) {
            root.preferences.refresh();
        }
    }

    FormGroup {
        width: parent.width

        PickerRow {
            currentIndex: options.indexOf(root.preferences.theme)
            options: root.preferences.themes
            text: "Theme"

            onChosen: index => root.preferences.theme = options[index]
        }
        PickerRow {
            currentIndex: options.indexOf(root.preferences.accent)
            options: root.preferences.accents
            text: "Accent"

            onChosen: index => root.preferences.accent = options[index]
        }
        SliderRow {
            current: root.preferences.opacity
            to: 1
            from: 0.65
            stepSize: 0.05
            text: "Opacity"

            onAsked: value => root.preferences.opacity = value
        }
        SwitchRow {
            checked: root.preferences.compact
            text: "Compact shelf content"
            width: parent.width

            onToggled: checked => root.preferences.compact = checked
        }
    }
    FormGroup {
        width: parent.width

        PickerRow {
            currentIndex: root.preferences.display
            options: root.preferences.displays
            text: "Display"

            onChosen: index => root.preferences.display = index
        }
        PickerRow {
            currentIndex: options.indexOf(root.preferences.edge)
            options: root.preferences.edges
            text: "Screen edge"

            onChosen: index => root.preferences.edge = options[index]
        }
        PushButton {
            text: "Reset position to top center"

            onActivated: root.preferences.resetPosition()
        }
        SecondaryText {
            font.pixelSize: 12
            text: "Drag the shelf header to dock on the top, left, or right edge. Your position saves automatically."
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
            text: "Shelf size"
            // Floating-point 1.15 is a little less than 115 per cent.
            valueText: Math.floor(root.preferences.scale * 100 + 1e-9) + "%"

            onAsked: value => root.preferences.scale = value
        }
        SwitchRow {
            checked: root.preferences.openOnHover
            text: "Expand on hover"
            width: parent.width

            onToggled: checked => root.preferences.openOnHover = checked
        }
        SliderRow {
            current: root.preferences.hoverDelay
            to: 1.5
            from: 0.2
            stepSize: 0.1
            text: "Collapse delay"
            valueText: root.preferences.hoverDelay.toFixed(1) + " s"

            onAsked: value => root.preferences.hoverDelay = value
        }
    }
    FormGroup {
        width: parent.width

        SwitchRow {
            checked: root.preferences.login
            text: "Launch at login"
            width: parent.width

            onToggled: checked => root.preferences.login = checked
        }
        SecondaryText {
            font.pixelSize: 12
            text: "Keyboard: ⌃⌥K opens search. ⌃⌥Space toggles the shelf. ⌘1–9 launches the corresponding visible app while the shelf is open. Escape closes it."
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
            text: "For login launch, install Perchly in Applications first."
            width: parent.width
        }
    }
}
