import QtQuick
import Perchly.Look

/// The place of a section that has no content of its own in this window.
Item {
    id: root

    required property string section

    readonly property var symbols: ({
        "Device": "bolt.fill",
        "Focus": "timer",
        "Launch": "square.stack.3d.up",
        "Meetings": "calendar",
        "Search": "magnifyingglass",
        "Snippets": "pin.fill"
    })

    RoundedRect {
        anchors.fill: parent
        color: Qt.rgba(1, 1, 1, 0.025)
        radius: 12
    }
    Column {
        anchors.centerIn: parent
        spacing: 12

        Symbol {
            anchors.horizontalCenter: parent.horizontalCenter
            color: Theme.grey
            name: root.symbols[root.section] ?? "tray"
            size: 26
        }
        GroupHeader {
            anchors.horizontalCenter: parent.horizontalCenter
            font.pixelSize: 13
            text: root.section
        }
    }
}
