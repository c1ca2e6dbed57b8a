import QtQuick
import Perchly.Look

/// Plain text in the program's typeface; font sizes are in screen points.
Text {
    color: Theme.text
    elide: Text.ElideRight
    font.family: Theme.family
    font.pixelSize: 11
    horizontalAlignment: Text.AlignLeft // whatever the text's direction
    textFormat: Text.PlainText
    verticalAlignment: Text.AlignVCenter
}
