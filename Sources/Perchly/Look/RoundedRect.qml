import QtQuick
import QtQuick.Shapes

/// A rectangle with round corners, painted in one piece: a plain one shows seams at its corners where
/// the shelf's scale, or the display's, is not a whole number.
Shape {
    id: root

    property color color: "white"
    property real radius: 0
    readonly property real corner: Math.min(root.radius, root.width / 2, root.height / 2)

    antialiasing: true

    ShapePath {
        fillColor: root.color
        startX: root.corner
        startY: 0
        strokeColor: "transparent"
        strokeWidth: -1

        PathLine { x: root.width - root.corner; y: 0 }
        PathArc { radiusX: root.corner; radiusY: root.corner; x: root.width; y: root.corner }
        PathLine { x: root.width; y: root.height - root.corner }
        PathArc { radiusX: root.corner; radiusY: root.corner; x: root.width - root.corner; y: root.height }
        PathLine { x: root.corner; y: root.height }
        PathArc { radiusX: root.corner; radiusY: root.corner; x: 0; y: root.height - root.corner }
        PathLine { x: 0; y: root.corner }
        PathArc { radiusX: root.corner; radiusY: root.corner; x: root.corner; y: 0 }
    }
}
