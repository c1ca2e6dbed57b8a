import QtQuick
import Perchly.Look

/// A status word, or a time with digits of equal width. A new word fades in; a running time does
/// not.
Item {
    id: root

    property string text: ""
    property color color: Theme.text
    property int size: 10
    property int weight: Font.Normal

    readonly property bool timed: /^\d+:\d\d$/.test(root.text)

    implicitHeight: word.implicitHeight
    implicitWidth: root.timed ? digits.implicitWidth : word.implicitWidth

    onTextChanged: {
        if (!root.timed) {
            fade.restart();
        }
    }

    Label {
        id: word

        color: root.color
        font.pixelSize: root.size
        font.weight: root.weight
        text: root.timed ? "" : root.text
    }
    DigitText {
        id: digits

        color: root.color
        size: root.size
        text: root.timed ? root.text : ""
        weight: root.weight
    }
    NumberAnimation {
        id: fade

        duration: 200
        easing.type: Easing.OutQuad
        from: 0
        property: "opacity"
        target: root
        to: 1
    }
}
