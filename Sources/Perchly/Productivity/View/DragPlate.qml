import QtQuick
import Perchly.Look

/// The plate of a file or link that can be dragged into another program, which gets the file or
/// link itself. Its children lie on top and handle their own presses.
RowCard {
    id: root

    property alias urls: source.urls
    /// The text at the pointer during a drag.
    property alias label: source.label

    /// Pressed outside its children, and not dragged.
    signal clicked()

    color: root.selected ? Qt.alpha(Theme.accent, 0.2) : Qt.rgba(1, 1, 1, hover.hovered || source.dragging ? 0.08 : 0.06)

    data: HoverHandler {
        id: hover

        cursorShape: source.dragging ? Qt.ClosedHandCursor : Qt.OpenHandCursor
    }
    underlay: DragSource {
        id: source

        anchors.fill: parent

        onClicked: root.clicked()
    }
}
