import QtQuick
import QtQuick.Layouts
import Perchly.Look
import Perchly.Stores
import Perchly.Extensions

/// The battery and screen captures.
ColumnLayout {
    id: root

    required property ShelfExtras extras

    spacing: 12

    TitleText {
        Layout.fillWidth: true
        Layout.topMargin: 4
        font.pixelSize: 22
        font.weight: Font.Medium
        text: root.extras.battery.line
    }
    PushButton {
        text: qsTr("Refresh battery")

        onActivated: root.extras.battery.refresh()
    }
    Rectangle {
        Layout.bottomMargin: 8
        Layout.fillWidth: true
        Layout.topMargin: 8
        color: Theme.line
        implicitHeight: 1
    }
    PushButton {
        prominent: usable
        text: root.extras.capture.active ? qsTr("Capturing…") : qsTr("Capture screen region")
        usable: !root.extras.capture.active

        onActivated: root.extras.capture.start()
    }
    SecondaryText {
        Layout.fillWidth: true
        text: qsTr("Drag to select a region. Escape cancels. Captures appear in Files for preview, copying, and dragging.")
    }
    BodyText {
        Accessible.role: Accessible.AlertMessage
        Layout.fillWidth: true
        color: Theme.orange
        text: root.extras.capture.error ?? ""
        visible: text !== ""
    }
    Item {
        Layout.fillHeight: true
    }
}
