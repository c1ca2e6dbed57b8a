import QtQuick
import Perchly.Look

/// A ring around its parent that marks the keyboard focus while keys are used.
RoundedRect {
    id: root

    required property bool shown

    anchors.fill: parent
    borderColor: Theme.accent
    borderWidth: Theme.highContrast ? 3 : 2
    color: "transparent"
    visible: root.shown && Theme.keysUsed && root.Window.active
}
