import QtQuick
import QtQuick.Layouts
import Perchly.Look
import Perchly.Stores

/// One entry of the library.
RowCard {
    id: root

    required property int index
    required property var row
    required property ShelfLibrary library
    required property ScrollList list
    /// Whether any row of the list has a Remove button.
    property bool someRemovable: true

    readonly property shelfItem entry: root.row.entry

    /// At an end of the list the row itself gets the keyboard, so that another press does nothing.
    function move(offset: int, button: IconButton) {
        root.library.move(root.entry.id, offset);
        if (button.activeFocus) {
            root.list.view.positionViewAtIndex(root.index, ListView.Contain);
            if (!button.usable) {
                root.list.select(root);
            }
        }
    }

    Accessible.name: root.entry.name
    Accessible.role: Accessible.ListItem

    RowLayout {
        spacing: 4
        width: parent.width

        ItemIcon {
            Layout.rightMargin: 8
            kind: root.entry.kind
            opacity: root.entry.visible ? 1 : 0.45
            path: root.entry.applicationPath
            widget: root.entry.widgetTitle
        }
        Label {
            Layout.fillWidth: true
            color: root.entry.visible ? Theme.text : Theme.grey
            font.pixelSize: 13
            font.weight: Font.Medium
            maximumLineCount: 1
            text: root.entry.name
        }
        IconButton {
            color: root.entry.visible ? Theme.text : Theme.grey
            subject: root.entry.name
            symbol: root.entry.visible ? "eye" : "eye.slash"
            toolTip: root.entry.visible ? qsTr("Hide") : qsTr("Show")

            onActivated: root.library.toggle(root.entry.id, ShelfLibrary.Visible)
        }
        IconButton {
            Accessible.checkable: true
            Accessible.checked: root.entry.favorite
            color: root.entry.favorite ? Theme.yellow : Theme.grey
            subject: root.entry.name
            symbol: root.entry.favorite ? "star.fill" : "star"
            toolTip: qsTr("Favorite")

            onActivated: root.library.toggle(root.entry.id, ShelfLibrary.Favorite)
        }
        IconButton {
            id: earlier

            subject: root.entry.name
            symbol: "arrow.up"
            toolTip: qsTr("Move earlier")
            usable: root.index > 0

            onActivated: root.move(-1, earlier)
        }
        IconButton {
            id: later

            subject: root.entry.name
            symbol: "arrow.down"
            toolTip: qsTr("Move later")
            usable: root.index < root.list.count - 1

            onActivated: root.move(1, later)
        }
        IconButton {
            id: removeButton

            subject: root.entry.name
            symbol: "minus.circle"
            toolTip: qsTr("Remove from shelf")
            visible: root.entry.removable

            onActivated: root.library.remove(root.entry.id)
        }
        // Keeps columns aligned between rows with and without a Remove button.
        Item {
            implicitWidth: removeButton.implicitWidth
            visible: root.someRemovable && !root.entry.removable
        }
    }
}
