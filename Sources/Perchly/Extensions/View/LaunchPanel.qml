pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Perchly.Look
import Perchly.Stores
import Perchly.Extensions

/// Applications, files and links that are opened together.
ColumnLayout {
    id: root

    required property Productivity tools
    required property ShelfExtras extras
    required property ExtrasDrafts drafts

    /// Larger groups are opened only after a confirmation.
    readonly property int maxUnasked: 20
    /// For all words: the second click of a double click hits the button that replaced the first.
    readonly property int buttonWidth: 90

    function save() {
        if (save.usable) {
            root.extras.groups.save(field.text);
            field.clear();
        }
    }

    spacing: 12

    RowLayout {
        Layout.fillWidth: true
        spacing: 8

        TextEntry {
            id: field

            Layout.fillWidth: true
            placeholder: qsTr("Workspace name")
            text: root.drafts.groupName

            onAccepted: root.save()
            onTextChanged: root.drafts.groupName = field.text
        }
        PushButton {
            id: save

            Layout.preferredHeight: field.height
            text: qsTr("Save current")
            usable: field.text.trim() !== ""

            onActivated: root.save()
        }
    }
    CaptionText {
        Layout.fillWidth: true
        color: Theme.grey
        text: qsTr("Save visible shelf apps together with the files and links currently in your tray.")
    }
    ScrollList {
        Layout.fillHeight: true
        Layout.fillWidth: true
        fallback: field
        label: qsTr("Launch groups")
        placeholder: qsTr("No launch groups yet.")
        model: root.extras.groups

        delegate: ListRow {
            id: group

            required property var row
            property bool asks: false
            property int askedHeight: 0

            Accessible.description: group.asks ? group.detail : group.row.contents
            detail: group.asks ? qsTr("Open %n items?", "", group.row.size) : ""
            label.font.weight: Font.Medium
            minContentHeight: group.asks ? group.askedHeight : 0
            text: group.row.name

            Keys.onEscapePressed: event => {
                event.accepted = group.asks;
                group.asks = false;
            }
            onAsksChanged: {
                open.cameAt = remove.cameAt = Date.now(); // guards against a double click
                if (group.asks) {
                    open.forceActiveFocus(Qt.TabFocusReason); // for Escape
                }
            }

            below: GroupItems {
                Layout.fillWidth: true
                Layout.topMargin: 3
                row: group.row
                tools: root.tools
                visible: !group.asks
            }
            leading: Symbol {
                Layout.rightMargin: 4
                color: Theme.purple
                name: "square.stack.3d.up.fill"
                size: 15
            }

            RowButton {
                id: open

                Layout.minimumWidth: root.buttonWidth
                prominent: group.asks
                subject: group.asks ? group.detail : group.text
                text: group.asks ? qsTr("Open") : qsTr("Launch")

                onActivated: {
                    group.askedHeight = group.height - 2 * group.padding;
                    group.asks = !group.asks && group.row.size > root.maxUnasked;
                    if (!group.asks) {
                        root.extras.groups.launch(group.row.id);
                    }
                }
            }
            RowButton {
                id: remove

                Layout.minimumWidth: root.buttonWidth
                subject: group.asks ? group.detail : group.text
                text: group.asks ? qsTr("Cancel") : qsTr("Delete")

                onActivated: {
                    if (group.asks) {
                        group.asks = false;
                    } else {
                        root.extras.groups.remove(group.row.id);
                    }
                }
            }
        }
    }
}
