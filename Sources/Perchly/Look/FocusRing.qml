import QtQuick
import Perchly.Look

/// A ring around its parent that marks the keyboard focus.
RoundedRect {
    id: root

    required property bool shown

    anchors.fill: parent
    borderColor: Theme.accent
    borderWidth: 2
    color: "transparent"
    visible: root.shown && root.Window.active
}
