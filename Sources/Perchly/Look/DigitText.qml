pragma ComponentBehavior: Bound

import QtQuick
import Perchly.Look

/// Text with digits of equal width, so that a running time does not jitter.
Row {
    id: root

    property string text: ""
    property color color: Theme.text
    property int size: 11
    property int weight: Font.Normal

    readonly property font cellFont: Qt.font({ family: Theme.family, pixelSize: root.size, weight: root.weight })
    readonly property real cell: Theme.digitWidth(root.cellFont)

    Repeater {
        model: root.text.length

        Label {
            required property int index
            readonly property string character: root.text.charAt(index)

            color: root.color
            font: root.cellFont
            horizontalAlignment: Text.AlignHCenter
            text: character
            width: character >= "0" && character <= "9" ? root.cell : implicitWidth
        }
    }
}
