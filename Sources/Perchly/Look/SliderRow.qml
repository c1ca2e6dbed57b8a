import QtQuick
import Perchly.Look

/// A form row with a label, a slider, and its value in words.
Item {
    id: root

    property string text: ""
    property string valueText: ""
    property alias current: slider.current
    property alias from: slider.from
    property alias to: slider.to
    property alias stepSize: slider.stepSize

    signal asked(real value)

    implicitHeight: 28
    width: parent?.width ?? 0

    Label {
        anchors.verticalCenter: parent.verticalCenter
        font.pixelSize: 13
        text: root.text
        width: slider.x
    }
    ValueSlider {
        id: slider

        Accessible.description: root.valueText
        anchors.right: parent.right
        anchors.rightMargin: root.valueText !== "" ? 60 : 0
        label: root.text
        width: parent.width - anchors.rightMargin - 184

        onAsked: value => root.asked(value)
    }
    DigitText {
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        color: Theme.grey
        size: 13
        text: root.valueText
    }
}
