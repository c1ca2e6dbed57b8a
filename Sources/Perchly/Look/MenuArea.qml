import QtQuick

/// Asks for its parent's menu: when the right button is clicked, and when the parent passes a press
/// of the Menu key or Shift+F10 to pressByKey(), with the item that the menu belongs to.
MouseArea {
    id: root

    /// The menu belongs at this global position.
    signal asked(point position, bool byKey)

    function pressByKey(event: KeyEvent, item: Item) {
        if (event.key === Qt.Key_Menu || (event.key === Qt.Key_F10 && event.modifiers === Qt.ShiftModifier)) {
            event.accepted = true;
            root.asked(item.mapToGlobal(item.width / 2, item.height), true);
        }
    }

    acceptedButtons: Qt.RightButton
    anchors.fill: parent

    onClicked: mouse => root.asked(root.mapToGlobal(mouse.x, mouse.y), false)
}
