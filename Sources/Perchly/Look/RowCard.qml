import QtQuick
import Perchly.Look

/// The background of one row of a ScrollList. Its children determine the height.
FocusScope {
    id: root

    /// Whether the row itself takes the keyboard when none of its controls can.
    property bool takesKeyboard: true
    /// Whether the row itself can take the keyboard even if it has controls.
    property bool selectable: false
    /// Whether the row itself has the keyboard.
    readonly property bool selected: root.Window.activeFocusItem === root
    property int padding: 12
    property alias radius: plate.radius
    property alias color: plate.color
    /// Items between the plate and the content.
    property alias underlay: underlay.data
    default property alias content: body.data

    Accessible.selectable: root.ListView.view !== null
    Accessible.selected: root.activeFocus
    implicitHeight: Math.ceil(body.childrenRect.height) + 2 * root.padding
    width: ListView.view?.width ?? 0

    RoundedRect {
        id: plate

        anchors.fill: parent
        color: Theme.row
        radius: 12
    }
    Item {
        id: underlay

        anchors.fill: parent
    }
    Item {
        id: body

        anchors.fill: parent
        anchors.margins: root.padding
    }
    FocusRing {
        radius: plate.radius
        shown: root.selected
    }
}
