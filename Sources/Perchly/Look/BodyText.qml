import QtQuick
import Perchly.Look

/// Window text of normal size, with as many lines as it needs.
Label {
    Accessible.name: text
    Accessible.role: Accessible.StaticText
    font.pixelSize: 13
    lineHeight: 1.15
    wrapMode: Text.Wrap
}
