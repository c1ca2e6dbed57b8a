import QtQuick
import Perchly.Look

/// The shelf's body. Its corners at the display's edge are square: the rounded rectangle extends
/// beyond that edge, where the panel ends.
Item {
    id: root

    required property string edge
    required property color color
    required property real radius
    /// Whether the shelf is open or moving, and its scale meanwhile.
    required property bool opened
    required property real openScale
    required property bool shadowed
    /// Colour of the outline while something that can be dropped is over the shelf.
    required property color highlight

    readonly property real hidden: root.radius + 2

    Item {
        id: body

        anchors.fill: parent
        anchors.leftMargin: root.edge === "left" ? -root.hidden : 0
        anchors.rightMargin: root.edge === "right" ? -root.hidden : 0
        anchors.topMargin: root.edge === "top" ? -root.hidden : 0

        SoftShadow {
            radius: root.opened ? 28 : 17
            openScale: root.opened ? root.openScale : 1
            spread: 26
            visible: root.shadowed
        }
        RoundedRect {
            anchors.fill: parent
            borderColor: root.highlight
            borderWidth: root.highlight.a > 0 ? 2 : 0
            color: root.color
            radius: root.radius
        }
    }
}
