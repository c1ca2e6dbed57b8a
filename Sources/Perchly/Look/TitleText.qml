import QtQuick
import Perchly.Look

/// The title of a window.
Label {
    Accessible.name: text
    Accessible.role: Accessible.Heading
    font.pixelSize: 25
    font.weight: Font.DemiBold
}
