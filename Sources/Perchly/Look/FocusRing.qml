import QtQuick
import Perchly.Look

/// Shows where the keyboard is: a ring around its parent.
RoundedRect {
    id: root

    required property bool shown

    anchors.fill: parent
    borderColor: Theme.accent
    borderWidth: 2
    color: "transparent"
    visible: root.shown && root.Window.active
}
