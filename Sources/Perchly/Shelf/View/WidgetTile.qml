import QtQuick
import Perchly.Look
import Perchly.Stores
import Perchly.Shelf

/// A widget on the strip; a press offers to pin it.
PressButton {
    id: root

    required property ShelfModel model
    required property string widget
    required property PopoverLayer popovers

    readonly property color tint: WidgetLook.color(root.widget)
    readonly property bool pinned: root.model.left === root.widget || root.model.right === root.widget

    focusInset: 0
    height: 88
    label: qsTr("Pin %1").arg(WidgetLook.name(root.widget))
    plateRadius: 12
    subject: root.pinned ? qsTr("Pinned") : ""
    toolTip: root.label
    width: StripPaging.entryWidth

    onActivated: root.popovers.choosePin(face, root.widget, root.activeFocus)

    SpringValue {
        id: lift

        reduced: Theme.reduceMotion
        target: root.containsMouse && !Theme.reduceMotion ? 1.06 : 1
    }

    Item {
        id: face

        height: 50
        scale: lift.value
        width: 50
        x: 8
        y: 8

        RoundedRect {
            anchors.fill: parent
            bottomColor: Qt.alpha(root.tint, 0.55)
            color: root.tint
            radius: 14
        }
        RoundedRect {
            anchors.fill: parent
            borderColor: Qt.rgba(1, 1, 1, 0.22)
            borderWidth: 1
            color: "transparent"
            radius: 14
        }
        Symbol {
            anchors.centerIn: parent
            bold: true
            name: WidgetLook.symbol(root.widget)
            size: 25
        }
        RoundedRect {
            color: Theme.floating
            height: 16
            radius: 8
            visible: root.pinned
            width: 16
            x: 50 - 16 + 4
            y: -4

            Symbol {
                anchors.centerIn: parent
                name: "pin.fill"
                size: 8
            }
        }
    }
    Label {
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.top: face.bottom
        anchors.topMargin: 9
        font.pixelSize: 10
        horizontalAlignment: Text.AlignHCenter
        text: WidgetLook.name(root.widget)
        width: Math.min(implicitWidth, root.width)
    }
}
