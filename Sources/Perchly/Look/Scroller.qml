import QtQuick
import Perchly.Look

/// Scrolls the view that it lies upon: by the wheel, by Page Up and Down, by a thin bar at its right,
/// and to whatever inside it has the keyboard.
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

    // Without types, as in ScrollList.

    /// Brings the item into view, with a little of what is around it.
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

    /// What Page Up, Page Down, and with Control also Home and End do.
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

    MouseArea {
        id: bar

        readonly property real room: bar.height - thumb.height

        function place(y: real) {
            root.scrollTo((y - bar.grabbedAt) / bar.room * root.range);
        }

        property real grabbedAt: 0

        height: parent.height
        hoverEnabled: true
        preventStealing: true
        visible: root.range > 0.5
        width: 14
        x: parent.width + 3

        onPositionChanged: mouse => {
            if (bar.pressed) {
                bar.place(mouse.y);
            }
        }
        onPressed: mouse => {
            const inside = mouse.y >= thumb.y && mouse.y <= thumb.y + thumb.height;
            bar.grabbedAt = inside ? mouse.y - thumb.y : thumb.height / 2;
            bar.place(mouse.y);
        }

        RoundedRect {
            id: thumb

            anchors.horizontalCenter: parent.horizontalCenter
            color: Qt.rgba(1, 1, 1, bar.containsMouse || bar.pressed ? 0.4 : 0.2)
            height: Math.max(28, Math.round(bar.height * root.view.height / Math.max(1, root.view.contentHeight)))
            radius: 3
            width: 6
            y: root.range > 0 ? Math.round((root.view.contentY - root.start) / root.range * bar.room) : 0
        }
    }
}
