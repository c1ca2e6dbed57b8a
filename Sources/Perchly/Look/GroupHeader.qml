import QtQuick
import Perchly.Look

/// The title of a group of rows.
Label {
    Accessible.name: text
    Accessible.role: Accessible.Heading
    color: Theme.grey
    font.letterSpacing: 0.2
    font.pixelSize: 12
    font.weight: Font.DemiBold
}
