import QtQuick
import QtQuick.Layouts
import Perchly.Look
import Perchly.Stores
import Perchly.Extensions

/// The battery, and captures of the screen.
ColumnLayout {
    id: root

    required property Productivity tools
    required property ShelfExtras extras

    spacing: 12

    TitleText {
        Layout.fillWidth: true
        Layout.topMargin: 4
        font.pixelSize: 22
        font.weight: Font.Medium
        text: root.extras.battery
    }
    PushButton {
        text: "Refresh battery"

        onActivated: root.extras.refreshBattery()
    }
    Rectangle {
        Layout.bottomMargin: 8
        Layout.fillWidth: true
        Layout.topMargin: 8
        color: Theme.line
        implicitHeight: 1
    }
    PushButton {
        enabled: !root.extras.capturing
        prominent: enabled
        text: root.extras.capturing ? "Capturing…" : "Capture screen region"

        onActivated: root.extras.screenshot(root.tools)
    }
    SecondaryText {
        Layout.fillWidth: true
        text: "Drag to select a region. Escape cancels. Captures appear in Files for preview, copying, and dragging."
    }
    BodyText {
        Accessible.role: Accessible.AlertMessage
        Layout.fillWidth: true
        color: Theme.orange
        text: root.extras.error ?? ""
        visible: text !== ""
    }
    Item {
        Layout.fillHeight: true
    }
}
