import QtQuick
import Perchly.Look

/// The soft shadow around a rounded rectangle that fills the parent. The rectangle's own area stays
/// clear, as it may be translucent.
BorderImage {
    id: root

    /// Corner radius and width of the shadow, in points.
    required property int radius
    required property int spread
    /// Scale of the rectangle.
    property real openScale: 1

    readonly property int density: Math.ceil(Screen.devicePixelRatio)
    readonly property int corner: (root.radius + root.spread) * root.density

    border.bottom: root.corner
    border.left: root.corner
    border.right: root.corner
    border.top: root.corner
    height: parent.height / root.scale + 2 * root.spread * root.density
    scale: root.openScale / root.density
    source: Theme.shadow(root.radius * root.density, root.spread * root.density)
    transformOrigin: Item.TopLeft
    width: parent.width / root.scale + 2 * root.spread * root.density
    x: -root.spread * root.openScale
    y: -root.spread * root.openScale
}
