pragma ComponentBehavior: Bound

import QtQuick
import Perchly.Look

/// Chooses one of a few words that are side by side. Tab reaches the chosen one; the arrow keys
/// choose its neighbours.
Item {
    id: root

    /// The accessible name.
    required property string label
    required property list<string> options
    /// The shown names of the options.
    property list<string> names: root.options
    required property string current

    readonly property int currentIndex: root.options.indexOf(root.current)

    signal chosen(string option)

    function choose(index: int) {
        root.chosen(root.options[index]);
        segments.itemAt(index).forceActiveFocus();
    }

    Accessible.name: root.label
    Accessible.role: Accessible.Grouping
    implicitHeight: 32
    implicitWidth: 100 * root.options.length

    Keys.onLeftPressed: root.choose(Math.max(0, root.currentIndex - 1))
    Keys.onRightPressed: root.choose(Math.min(root.options.length - 1, root.currentIndex + 1))

    RoundedRect {
        anchors.fill: parent
        color: Qt.rgba(1, 1, 1, 0.07)
        radius: 9
    }
    Row {
        anchors.fill: parent
        anchors.margins: 2

        Repeater {
            id: segments

            model: root.options

            PressButton {
                id: segment

                required property int index
                required property string modelData
                readonly property bool selected: segment.index === root.currentIndex

                Accessible.checkable: true
                Accessible.checked: segment.selected
                Accessible.role: Accessible.RadioButton
                activeFocusOnTab: segment.selected || segment.activeFocus || (segment.index === 0 && root.currentIndex < 0)
                focusInset: -1
                height: parent.height
                label: root.names[segment.index]
                plateRadius: 7
                pressedScale: 1
                width: parent.width / root.options.length

                onActivated: root.choose(segment.index)

                RoundedRect {
                    anchors.fill: parent
                    color: Qt.rgba(1, 1, 1, segment.selected ? 0.16 : 0.05)
                    radius: 7
                    visible: segment.selected || segment.containsMouse
                }
                Label {
                    anchors.centerIn: parent
                    color: segment.selected ? Theme.text : Qt.rgba(1, 1, 1, 0.72)
                    font.pixelSize: 13
                    font.weight: segment.selected ? Font.DemiBold : Font.Medium
                    horizontalAlignment: Text.AlignHCenter
                    text: root.names[segment.index]
                    width: Math.min(implicitWidth, segment.width - 8)
                }
            }
        }
    }
}
