import QtQuick
import Perchly.Look

/// Gives its parent a tooltip: after the pointer has rested on it for a moment, the text appears in
/// a separate window, since the collapsed shelf has no room for it. The window exists only then. An
/// open tooltip follows changes of `text`. A menu of the shelf hides it.
Item {
    id: root

    property string text: ""
    /// The side of the tooltip, if the display has room there: Qt.BottomEdge, Qt.LeftEdge or
    /// Qt.RightEdge.
    property int side: Qt.BottomEdge
    readonly property bool shown: window.active

    function dismiss() {
        rest.stop();
        if (window.item) {
            // Hidden first, since unloading takes until the next turn of the event loop.
            (window.item as ToolTipWindow).visible = false;
        }
        window.active = false;
    }

    anchors.fill: parent

    onTextChanged: {
        if (root.text !== "" && root.shown && window.item) {
            (window.item as ToolTipWindow).present(root, root.text, root.side);
        }
    }
    onVisibleChanged: root.dismiss()

    HoverHandler {
        id: hover

        enabled: root.text !== "" && !Theme.menuOpen
        onEnabledChanged: root.dismiss()
        onHoveredChanged: {
            if (hover.hovered) {
                rest.restart();
            } else {
                root.dismiss();
            }
        }
        onPointChanged: {
            if (rest.running) {
                rest.restart();
            }
        }
    }

    Timer {
        id: rest

        interval: 700
        onTriggered: window.active = hover.hovered && root.visible
    }

    Loader {
        id: window

        active: false
        source: active ? "ToolTipWindow.qml" : ""
        onLoaded: (item as ToolTipWindow).present(root, root.text, root.side)
    }
}
