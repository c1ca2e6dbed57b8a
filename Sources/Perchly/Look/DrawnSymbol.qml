import QtQuick
import QtQuick.Shapes
import Perchly.Look

/// The one symbol that the font lacks: a rounded square of dashes, "app.dashed".
Shape {
    id: root

    property color color: Theme.text

    readonly property real line: root.width * 0.075
    readonly property real inset: root.width * 0.1
    readonly property real corner: root.width * 0.2
    readonly property real side: root.width - 2 * root.inset
    /// The outline's length, in line widths, makes twelve dashes with their gaps.
    readonly property real dash: (4 * (root.side - 2 * root.corner) + 2 * Math.PI * root.corner) / 12 / root.line

    ShapePath {
        capStyle: ShapePath.RoundCap
        dashOffset: root.dash * 0.275
        dashPattern: [root.dash * 0.55, root.dash * 0.45]
        fillColor: "transparent"
        startX: root.inset + root.corner
        startY: root.inset
        strokeColor: root.color
        strokeStyle: ShapePath.DashLine
        strokeWidth: root.line

        PathLine { relativeX: root.side - 2 * root.corner; relativeY: 0 }
        PathArc { radiusX: root.corner; radiusY: root.corner; relativeX: root.corner; relativeY: root.corner }
        PathLine { relativeX: 0; relativeY: root.side - 2 * root.corner }
        PathArc { radiusX: root.corner; radiusY: root.corner; relativeX: -root.corner; relativeY: root.corner }
        PathLine { relativeX: -(root.side - 2 * root.corner); relativeY: 0 }
        PathArc { radiusX: root.corner; radiusY: root.corner; relativeX: -root.corner; relativeY: -root.corner }
        PathLine { relativeX: 0; relativeY: -(root.side - 2 * root.corner) }
        PathArc { radiusX: root.corner; radiusY: root.corner; relativeX: root.corner; relativeY: -root.corner }
    }
}
