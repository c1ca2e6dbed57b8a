pragma ComponentBehavior: Bound

import QtQuick
import Perchly.Look
import Perchly.Stores
import Perchly.Extensions

/// The pictures and names of a launch group's items.
Flow {
    id: root

    required property Productivity tools
    /// A row of LaunchGroups.
    required property var row

    readonly property int hidden: root.row.size - root.row.items.length

    Accessible.name: root.row.contents
    Accessible.role: Accessible.StaticText
    spacing: 10

    Repeater {
        model: root.row.items

        Row {
            id: item

            required property var modelData

            spacing: 5

            ApplicationPicture {
                height: 16
                path: item.modelData.application
                visible: item.modelData.application !== ""
                width: 16
            }
            ItemPicture {
                height: 16
                tools: root.tools
                url: item.modelData.application === "" ? item.modelData.url : ""
                visible: item.modelData.application === ""
                width: 16
            }
            Label {
                Accessible.ignored: true
                anchors.verticalCenter: parent.verticalCenter
                color: Theme.grey
                elide: Text.ElideMiddle
                text: item.modelData.name
                width: Math.min(Math.ceil(implicitWidth), root.width - 21)
            }
        }
    }
    Label {
        Accessible.ignored: true
        color: Theme.grey
        height: 16
        text: qsTr("and %n more", "", root.hidden)
        visible: root.hidden > 0
    }
}
