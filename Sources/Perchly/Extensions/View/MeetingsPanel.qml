pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Perchly.Look
import Perchly.Stores
import Perchly.Extensions

/// The meetings of the next seven days.
ColumnLayout {
    id: root

    required property Productivity tools
    required property ShelfExtras extras

    readonly property bool shown: root.Window.window?.visible ?? false

    spacing: 12

    Component.onCompleted: {
        if (root.shown) {
            root.extras.meetings.refresh();
        }
    }
    onShownChanged: {
        if (root.shown) {
            root.extras.meetings.refresh();
        }
    }

    RowLayout {
        spacing: 8

        PushButton {
            text: qsTr("Connect Calendar")

            onActivated: root.extras.meetings.connectCalendar()
        }
        PushButton {
            text: qsTr("Refresh")

            onActivated: root.extras.meetings.readAgain()
        }
    }
    SecondaryText {
        Layout.fillWidth: true
        text: list.count > 0 ? root.extras.meetings.message : ""
        visible: text !== ""
    }
    ScrollList {
        id: list

        Layout.fillHeight: true
        Layout.fillWidth: true
        label: qsTr("Meetings")
        placeholder: root.extras.meetings.message
        model: root.extras.meetings

        delegate: RowCard {
            id: meeting

            required property var row

            Accessible.name: meeting.row.title
            Accessible.role: Accessible.ListItem

            RowLayout {
                spacing: 12
                width: parent.width

                RoundedRect {
                    Layout.fillHeight: true
                    color: meeting.row.running ? Theme.accent : Qt.rgba(1, 1, 1, 0.22)
                    implicitWidth: 4
                    radius: 2
                }
                ColumnLayout {
                    Layout.fillWidth: true
                    spacing: 3

                    Label {
                        Accessible.ignored: true
                        Layout.fillWidth: true
                        font.pixelSize: 13
                        font.weight: Font.DemiBold
                        text: meeting.row.title
                    }
                    BodyText {
                        Layout.fillWidth: true
                        font.pixelSize: 12
                        text: meeting.row.start
                    }
                    CaptionText {
                        Layout.fillWidth: true
                        color: meeting.row.running ? Theme.accent : Theme.grey
                        text: meeting.row.status
                    }
                }
                RowButton {
                    prominent: meeting.row.running
                    subject: meeting.row.title
                    text: qsTr("Join meeting")
                    visible: meeting.row.link.toString() !== ""

                    onActivated: root.tools.open(meeting.row.link)
                }
            }
        }
    }
}
