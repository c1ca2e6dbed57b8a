import QtQuick
import Perchly.Look

/// The plate of something that can be dragged into another program, which gets the files and links
/// themselves. What is put inside lies on it and takes its own presses.
Item {
    id: root

    property alias urls: source.urls
    /// Shown beside the pointer while it is dragged.
    property alias label: source.label
    property int padding: 12

    /// Pressed beside what lies on it, and not dragged.
    signal clicked()

    default property alias content: body.data

    implicitHeight: Math.ceil(body.childrenRect.height) + 2 * root.padding

    RoundedRect {
        anchors.fill: parent
        color: Qt.rgba(1, 1, 1, hover.hovered || source.dragging ? 0.08 : 0.06)
        radius: 10
    }
    DragSource {
        id: source

        anchors.fill: parent

        onClicked: root.clicked()
    }
    HoverHandler {
        id: hover

        cursorShape: source.dragging ? Qt.ClosedHandCursor : Qt.OpenHandCursor
    }
    Item {
        id: body

        anchors.fill: parent
        anchors.margins: root.padding
    }
    FocusRing {
        radius: 10
        shown: root.activeFocus
    }
}
