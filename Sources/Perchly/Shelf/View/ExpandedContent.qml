import QtQuick
import Perchly.Look
import Perchly.Stores
import Perchly.Shelf

/// The open shelf's content in natural size: the header, the rows below it and, at a side, the edge
/// for dragging. Every row's height is known in advance, so that the outline can grow without
/// waiting for a layout.
Item {
    id: root

    required property ShelfModel model
    required property ShelfPreferences preferences
    required property ShelfLibrary library
    required property Productivity productivity
    required property ShelfExtras extras
    required property ShellActions shell
    required property CompactStatus status
    /// From 0 (hidden) to 1 (fully visible).
    property real appearance: 0

    /// Whether a chooser is open above the content.
    readonly property alias choosing: popovers.open
    readonly property alias strip: strip
    readonly property color statusColor: root.model.running ? Theme.shelfOrange : Theme.shelfAccent
    readonly property string edge: root.model.dockEdge
    readonly property bool onSide: root.edge !== "top"
    readonly property real bandWidth: root.onSide ? 34 : 0
    readonly property real bandLeft: root.edge === "left" ? root.bandWidth : 0
    readonly property real headerHeight: root.onSide ? 34 : root.model.compactHeight
    readonly property real spacing: root.preferences.compact ? 8 : 20

    implicitHeight: root.headerHeight + rows.height
    implicitWidth: 660 + root.bandWidth

    ExpandedHeader {
        height: root.headerHeight
        notchWidth: root.model.hardwareNotchWidth
        opacity: Math.max(0, Math.min(1, root.appearance * 2 - 0.5))
        status: root.status
        statusColor: root.statusColor
        width: 660
        x: root.bandLeft
    }

    Item {
        id: rows

        height: footer.y + footer.height + 18
        opacity: Math.min(1, root.appearance)
        width: 660
        x: root.bandLeft
        y: root.headerHeight - (Theme.reduceMotion ? 0 : 10 * (1 - root.appearance))

        WidgetRow {
            id: widgetRow

            extras: root.extras
            model: root.model
            popovers: popovers
            preferences: root.preferences
            shell: root.shell
            status: root.status
            height: root.preferences.compact ? 110 : 145
            width: 620
            x: 20
            y: 12
        }

        SectionHeader {
            id: sectionHeader

            anchors.top: widgetRow.bottom
            anchors.topMargin: root.spacing
            shell: root.shell
            visible: !root.model.quietFocus
            width: 620
            x: 20
        }
        AppStrip {
            id: strip

            anchors.top: sectionHeader.bottom
            anchors.topMargin: root.spacing
            height: 88
            library: root.library
            model: root.model
            pictureScale: root.Screen.devicePixelRatio * root.preferences.scale
            popovers: popovers
            shell: root.shell
            visible: !root.model.quietFocus
            width: 620
            x: 20
        }
        QuietFocus {
            id: quiet

            anchors.top: widgetRow.bottom
            anchors.topMargin: root.spacing
            height: 120
            visible: root.model.quietFocus
            width: 620
            x: 20
        }

        Toolbar {
            id: toolbar

            anchors.top: root.model.quietFocus ? quiet.bottom : strip.bottom
            anchors.topMargin: root.spacing
            extras: root.extras
            model: root.model
            productivity: root.productivity
            shell: root.shell
            width: 620
            x: 20
        }
        Footer {
            id: footer

            anchors.top: toolbar.bottom
            anchors.topMargin: root.spacing
            extras: root.extras
            shell: root.shell
            width: 620
            x: 20
        }
    }

    Rectangle {
        color: Qt.rgba(1, 1, 1, 0.035)
        height: root.height
        visible: root.onSide
        width: root.bandWidth
        x: root.edge === "left" ? 0 : 660

        RoundedRect {
            anchors.centerIn: parent
            color: Qt.rgba(1, 1, 1, 0.3)
            height: 32
            radius: 1.5
            width: 3
        }
    }

    PopoverLayer {
        id: popovers

        anchors.fill: parent
        model: root.model
        preferences: root.preferences
        shell: root.shell
    }
}
