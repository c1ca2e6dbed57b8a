import QtQuick
import Perchly.Look

/// A tooltip's window, which takes neither keyboard nor pointer.
Window {
    id: root

    readonly property alias text: label.text
    readonly property int gap: 8
    readonly property int padding: 10
    /// Max width of a line; a longer text wraps.
    property real widest: 0

    /// Shows the text beside the item, inside the item's display.
    function present(item: Item, text: string, side: int) {
        root.widest = Math.min(460, item.Screen.width - 2 * root.padding);
        label.text = text;
        const topLeft = item.mapToGlobal(0, 0);
        const bottomRight = item.mapToGlobal(item.width, item.height);
        let left = (topLeft.x + bottomRight.x - root.width) / 2;
        let top = bottomRight.y + root.gap;
        if (side === Qt.BottomEdge) {
            if (top + root.height > item.Screen.virtualY + item.Screen.height) {
                top = topLeft.y - root.gap - root.height;
            }
        } else {
            left = side === Qt.RightEdge ? bottomRight.x + root.gap : topLeft.x - root.gap - root.width;
            top = (topLeft.y + bottomRight.y - root.height) / 2;
        }
        const origin = ToolTipNesting.nest(root, item);
        root.x = Math.round(root.within(left, item.Screen.virtualX, item.Screen.width - root.width)) - origin.x;
        root.y = Math.round(root.within(top, item.Screen.virtualY, item.Screen.height - root.height)) - origin.y;
        root.visible = true;
    }

    function within(value: real, start: real, room: real): real {
        return Math.max(start, Math.min(value, start + room));
    }

    color: Theme.floating
    flags: Qt.ToolTip | Qt.FramelessWindowHint | Qt.WindowDoesNotAcceptFocus | Qt.WindowTransparentForInput
    height: Math.ceil(label.implicitHeight) + root.padding
    visible: false
    width: Math.ceil(label.width) + 2 * root.padding

    RoundedRect {
        anchors.fill: parent
        borderColor: Qt.rgba(1, 1, 1, 0.14)
        borderWidth: 1
        color: "transparent"
    }

    Label {
        id: label

        anchors.centerIn: parent
        font.pixelSize: 11
        maximumLineCount: 4
        width: Math.min(implicitWidth, root.widest)
        wrapMode: Text.Wrap
    }
}
