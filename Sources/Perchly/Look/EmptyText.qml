import QtQuick
import Perchly.Look

/// Says why a list is empty, in its middle.
SecondaryText {
    anchors.centerIn: parent
    horizontalAlignment: Text.AlignHCenter
    visible: text !== ""
    width: Math.min(implicitWidth, parent.width)
}
