import QtQuick
import QtQuick.Templates as T
import Perchly.Look

/// Scrolls the view below it: by the wheel, by Page Up and Down, by a thin bar on its right, and to
/// the focused item inside it.
Item {
    id: root

    required property Flickable view

    readonly property real range: Math.max(0, root.view.contentHeight - root.view.height)
    readonly property real start: root.view.originY
    readonly property Item focused: root.Window.activeFocusItem

    function scrollTo(position: real) {
        root.view.contentY = root.start + Math.max(0, Math.min(root.range, position));
    }

    function scrollBy(distance: real) {
        root.scrollTo(root.view.contentY - root.start + distance);
    }

    // These declare no types: compiled ahead of time, they would access deleted items.

    /// Brings the item into view, with a little space around it.
    function reveal(item) {
        const margin = 16;
        const top = item.mapToItem(root.view.contentItem, 0, 0).y;
        const bottom = top + item.height;
        if (top - margin < root.view.contentY) {
            root.scrollTo(top - margin - root.start);
        } else if (bottom + margin > root.view.contentY + root.view.height) {
            root.scrollTo(bottom + margin - root.view.height - root.start);
        }
    }

    function holds(item) {
        for (let at = item; at; at = at.parent) {
            if (at === root.view.contentItem) {
                return true;
            }
        }
        return false;
    }

    /// Handles Page Up and Page Down and, with Control, Home and End.
    function page(event: var) {
        const distance = 0.9 * root.view.height;
        const ends = event.modifiers & Qt.ControlModifier;
        event.accepted = true;
        if (event.key === Qt.Key_PageUp) {
            root.scrollBy(-distance);
        } else if (event.key === Qt.Key_PageDown) {
            root.scrollBy(distance);
        } else if (event.key === Qt.Key_Home && ends) {
            root.scrollTo(0);
        } else if (event.key === Qt.Key_End && ends) {
            root.scrollTo(root.range);
        } else {
            event.accepted = false;
        }
    }

    anchors.fill: root.view

    onFocusedChanged: {
        if (root.focused && root.holds(root.focused)) {
            root.reveal(root.focused);
        }
    }

    WheelHandler {
        acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
        target: null

        onWheel: event => root.scrollBy(event.pixelDelta.y !== 0 ? -event.pixelDelta.y : -event.angleDelta.y / 2)
    }
    T.ScrollBar {
        id: bar

        Accessible.ignored: true
        height: parent.height
        horizontalPadding: 4
        hoverEnabled: true
        minimumSize: 28 / bar.height
        orientation: Qt.Vertical
        position: (root.view.contentY - root.start) / root.view.contentHeight
        size: root.view.height / Math.max(1, root.view.contentHeight)
        visible: root.range > 0.5
        width: 14
        x: parent.width + 3

        contentItem: RoundedRect {
            color: Qt.rgba(1, 1, 1, bar.hovered || bar.pressed ? 0.4 : 0.2)
            radius: 3
        }

        onPositionChanged: {
            if (bar.pressed) {
                root.scrollTo(bar.position * root.view.contentHeight);
            }
        }
    }
}
