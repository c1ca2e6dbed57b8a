import QtQuick
import QtQuick.Layouts
import Perchly.Look
import Perchly.Stores

/// One installed application.
RowCard {
    id: root

    required property int index
    required property shelfItem item
    required property string name
    required property string path
    required property bool added
    required property ShelfLibrary library

    /// Kept for reuse, so not accessible.
    property bool pooled: false

    /// The application was added by a key; its button no longer takes the keyboard.
    signal addedByKey(index: int)

    Accessible.name: root.name
    Accessible.role: Accessible.ListItem
    takesKeyboard: false
    visible: !root.pooled

    ListView.onPooled: root.pooled = true
    ListView.onReused: root.pooled = false

    RowLayout {
        spacing: 12
        width: parent.width

        ItemIcon {
            kind: root.item.kind
            path: root.path
        }
        ColumnLayout {
            Layout.fillWidth: true
            spacing: 3

            Label {
                Layout.fillWidth: true
                font.pixelSize: 13
                font.weight: Font.Medium
                maximumLineCount: 1
                text: root.name
            }
            SpokenLabel {
                Layout.fillWidth: true
                color: Theme.grey
                elide: Text.ElideMiddle
                font.pixelSize: 10
                maximumLineCount: 1
                text: root.path
                visible: root.path !== ""
            }
        }
        RowButton {
            id: button

            Layout.minimumWidth: 72
            subject: root.name
            text: root.added ? qsTr("Added") : qsTr("Add")
            usable: !root.added

            onActivated: {
                const hadKeyboard = button.activeFocus;
                root.library.add(root.item);
                if (hadKeyboard) {
                    root.addedByKey(root.index);
                }
            }
        }
    }
}
