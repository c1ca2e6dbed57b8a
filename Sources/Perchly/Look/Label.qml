import QtQuick
import Perchly.Look

/// Plain text in the program's typeface; the font's sizes are in points of the screen.
Text {
    color: Theme.text
    elide: Text.ElideRight
    font.family: Theme.family
    font.pixelSize: 11
    horizontalAlignment: Text.AlignLeft // whatever direction the text has
    textFormat: Text.PlainText
    verticalAlignment: Text.AlignVCenter
}
