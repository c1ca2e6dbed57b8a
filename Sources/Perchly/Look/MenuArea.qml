import QtQuick

/// Asks for its parent's menu: when the right button is clicked, and when the parent passes a press
/// of the Menu key or Shift+F10 to pressByKey().
MouseArea {
    id: root

    /// The menu belongs at this global position.
    signal asked(point position, bool byKey)

    function pressByKey(event: KeyEvent) {
        if (event.key === Qt.Key_Menu || (event.key === Qt.Key_F10 && event.modifiers === Qt.ShiftModifier)) {
            event.accepted = true;
            root.asked(root.mapToGlobal(0, root.height), true);
        }
    }

    acceptedButtons: Qt.RightButton
    anchors.fill: parent

    onClicked: mouse => root.asked(root.mapToGlobal(mouse.x, mouse.y), false)
}
