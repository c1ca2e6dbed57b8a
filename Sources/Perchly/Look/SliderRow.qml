import QtQuick
import Perchly.Look

/// A line of a form: what is set, a slider, and its value in words.
Item {
    id: root

    property string text: ""
    property string valueText: ""
    property int labelWidth: 140
    property alias current: slider.current
    property alias minimumValue: slider.minimumValue
    property alias maximumValue: slider.maximumValue
    property alias stepSize: slider.stepSize

    signal moved(real value)

    implicitHeight: 28
    implicitWidth: 360

    Label {
        anchors.left: parent.left
        anchors.verticalCenter: parent.verticalCenter
        font.pixelSize: 13
        text: root.text
        width: root.labelWidth
    }
    ValueSlider {
        id: slider

        Accessible.description: root.valueText
        anchors.left: parent.left
        anchors.leftMargin: root.labelWidth
        anchors.right: root.valueText !== "" ? value.left : parent.right
        anchors.rightMargin: root.valueText !== "" ? 12 : 0
        anchors.verticalCenter: parent.verticalCenter
        current: 0
        label: root.text

        onMoved: value => root.moved(value)
    }
    Item {
        id: value

        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        height: digits.height
        visible: root.valueText !== ""
        width: 48

        DigitText {
            id: digits

            anchors.right: parent.right
            color: Theme.grey
            size: 13
            text: root.valueText
        }
    }
}
