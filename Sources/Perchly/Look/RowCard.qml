import QtQuick
import Perchly.Look

/// The background of one row of a ScrollList. Its children determine the height.
FocusScope {
    id: root

    /// In a list, the row itself has the keyboard when none of its controls takes it.
    property bool takesKeyboard: true
    /// It can have the keyboard beside its controls, too.
    property bool selectable: false
    /// It has the keyboard, and none of its controls.
    readonly property bool selected: root.Window.activeFocusItem === root
    property int padding: 10
    property alias radius: plate.radius
    property alias color: plate.color
    /// Lies between the plate and the content.
    property alias underlay: underlay.data
    default property alias content: body.data

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
